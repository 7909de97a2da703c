// SPDX-License-Identifier: GPL-3.0-or-later
// One load or one save of a vault file, as the program does them, for a test that kills it at
// a random moment: vault_worker load FILE | vault_worker save FILE SEED
#include "FullVault.h"
#include "platform/Paths.h"

#include <QCoreApplication>
#include <QDir>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    if (argc < 3)
        return 2;
    const QString file = platform::ToWindows(QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[2])));
    if (qstrcmp(argv[1], "load") == 0)
        return LoadVault(file).read ? 0 : 1;
    QList<Entry> entries = FullVault(argc > 3 ? QByteArray(argv[3]).toUInt() : 0);
    return SaveVault(file, entries) == VaultSave::Saved ? 0 : 1;
}
