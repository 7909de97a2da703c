// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/DriveList.h"

#include "platform/Paths.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString rowOf(const QString& letter)
{
    // The volume's name: the folder's own name (the user's for C:, none for the file-system root).
    const QString name = QFileInfo(QDir::cleanPath(platform::DriveRoot(letter.at(0)))).fileName();
    QString row = letter.toLower() + QLatin1Char(':');
    if (!name.isEmpty())
        row += QStringLiteral(" [") + name + QLatin1Char(']');
    return row;
}

} // namespace

DriveList::DriveList(QWidget* parent)
    : QComboBox(parent)
{
    fill();
    // The drive of the working folder is on show at first, as the runtime starts it.
    const QString current = platform::ToWindows(QDir::currentPath()).left(1);
    for (int i = 0; i < count(); ++i) {
        if (itemText(i).startsWith(current.toLower()))
            setCurrentIndex(i);
    }
    shown = currentText();
    connect(this, &QComboBox::activated, this, [this] {
        if (currentText() != shown) {
            shown = currentText();
            Q_EMIT Change();
        }
    });
}

void DriveList::fill()
{
    const QString keep = currentText();
    clear();
    for (const QString& letter : platform::DriveLetters())
        addItem(rowOf(letter));
    const int index = findText(keep);
    setCurrentIndex(index >= 0 ? index : (keep.isEmpty() ? 0 : -1));
    if (index < 0 && !keep.isEmpty()) {
        // The drive on show is gone: the row stays on show, as the runtime's list keeps it.
        insertItem(0, keep);
        setCurrentIndex(0);
    }
}

QString DriveList::Drive() const
{
    return shown;
}

int DriveList::SetDrive(const QString& drive)
{
    if (drive.isEmpty())
        return 68;
    const QString letter = drive.left(1).toLower();
    fill();
    for (int i = 0; i < count(); ++i) {
        if (itemText(i).startsWith(letter + QLatin1Char(':'))) {
            if (platform::DriveRoot(letter.at(0)).isEmpty())
                return 68;
            setCurrentIndex(i);
            if (itemText(i) != shown) {
                shown = itemText(i);
                Q_EMIT Change();
            }
            return 0;
        }
    }
    return 68;
}

void DriveList::showPopup()
{
    fill();
    QComboBox::showPopup();
}
