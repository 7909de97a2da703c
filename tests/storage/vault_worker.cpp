// One load or one save of a vault file, as the program does them, for a test that kills it at
// a random moment: vault_worker load FILE | vault_worker save FILE SEED
#include "FullVault.h"
#include "platform/Paths.h"

#include <QCoreApplication>
#include <QDir>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() < 3)
        return 2;
    const QString file = platform::ToWindows(QDir::current().absoluteFilePath(args.at(2)));
    if (args.at(1) == QLatin1String("load"))
        return LoadVault(file).read ? 0 : 1;
    QList<Entry> entries = FullVault(args.value(3).toUInt());
    return SaveVault(file, entries) == VaultSave::Saved ? 0 : 1;
}
