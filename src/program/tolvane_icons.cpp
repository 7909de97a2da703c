// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's icon as PNG files into a hicolor icon theme folder (SIZExSIZE/apps/
// tolvane.png), for the desktop's menu: the same drawing the windows and the tray show.
#include "widgets/ProgramPictures.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: tolvane-icons FOLDER\n");
        return 2;
    }
    const QString theme = QString::fromLocal8Bit(argv[1]);
    const QIcon icon = ProgramIcon();
    for (int size : { 16, 22, 24, 32, 48, 64, 128, 256 }) {
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(theme).arg(size);
        if (!QDir().mkpath(folder) || !icon.pixmap(size, size).save(folder + QStringLiteral("/tolvane.png"))) {
            std::fprintf(stderr, "tolvane-icons: cannot write %s\n", qPrintable(folder));
            return 1;
        }
    }
    return 0;
}
