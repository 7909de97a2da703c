// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DataTree.h"

#include "core/DataRoot.h"
#include "core/ProfileFiles.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <limits>

namespace {

// Reads the lines into the list with a signed 16-bit index, as the runtime would. Returns 0,
// or the error number at which the reading was abandoned (6 for the counter's overflow).
int readLinesInto(const QString& path, ListControl& list)
{
    QList<QByteArray> lines;
    const int error = platform::ReadLines(path, lines);
    if (error != platform::ErrNone)
        return error;
    qint16 i = 0;
    for (const QByteArray& line : lines) {
        list.addRow(platform::FromCodePage(line), i);
        if (i == std::numeric_limits<qint16>::max())
            return 6; // overflow of the counter
        ++i;
    }
    return 0;
}

void provisionTree(ListControl& list)
{
    const QString data = DataFolder();
    list.addRow(QStringLiteral("Administrator"));
    MakeDirTree(data + QStringLiteral("Administrator"));
    WriteIni(Keys::user, Keys::defaultProfile, QStringLiteral("Administrator"), data + QStringLiteral("config.txt"));
    WriteIni(Keys::user, Keys::current, QStringLiteral("Administrator"), data + QStringLiteral("config.txt"));
    const QString program = platform::ProgramFolder();
    if (platform::CopyFileTo(program + QStringLiteral("\\dummy.dat"), data + QStringLiteral("Administrator\\dummy.dat"))
        != platform::ErrNone)
        return;
    if (platform::CopyFileTo(program + QStringLiteral("\\users.txt"), data + QStringLiteral("users.txt"))
        != platform::ErrNone)
        return;
    const QString cfg = data + QStringLiteral("Administrator\\cfg.txt");
    for (Option option : AllOptions)
        WriteIni(Keys::setts, Keys::option(option), QStringLiteral("1"), cfg);
}

} // namespace

qint16 MakeDirTree(const QString& path)
{
    if (!platform::DriveExists(platform::DriveOfPath(path)))
        return 0;
    QString rest = path;
    if (!rest.endsWith(QLatin1Char('\\')))
        rest += QLatin1Char('\\');
    QString built;
    qsizetype p = rest.indexOf(QLatin1Char('\\'));
    while (p >= 0) {
        built += rest.left(p + 1);
        rest = rest.mid(p + 1);
        platform::MakeFolder(built); // an existing level fails here, as expected
        if (!platform::DriveExists(built) && !platform::FolderExists(built))
            return 0;
        p = rest.indexOf(QLatin1Char('\\'));
    }
    return -1;
}

qint16 RemoveDirTree(const QString& path)
{
    QString folder = path;
    if (folder.endsWith(QLatin1Char('\\')))
        folder.chop(1);
    if (!platform::FolderExists(folder))
        return 0;
    const int error = platform::DeleteFolder(folder, true);
    return (error == 0 && !platform::FolderExists(folder)) ? -1 : 0;
}

void LoadListFile(const QString& path, ListControl& list)
{
    list.clearRows();
    if (readLinesInto(path, list) != 0)
        provisionTree(list);
}

void SaveListFile(const QString& path, const ListControl& list)
{
    QByteArray out;
    for (int i = 0; i < list.rowCount(); ++i)
        out += platform::ToCodePage(list.rowText(i)) + "\r\n";
    platform::WriteFileAtomic(path, out);
}

int LoadComboFile(const QString& path, ListControl& combo)
{
    combo.clearRows();
    return readLinesInto(path, combo);
}
