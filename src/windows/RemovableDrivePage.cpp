// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/RemovableDrivePage.h"

#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/LanguageTable.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "windows/DriveList.h"

#include <QLabel>
#include <QPushButton>

namespace {

constexpr int colourInstalled = 32768; // green, as the runtime's colour number (blue, green, red)
constexpr int colourNotInstalled = 255; // red

// One step of the portable install: a file copied from the program's folder, or a folder made
// on the drive (no source). Paths are below the program's folder and the drive's root.
struct InstallStep
{
    const char* source;
    const char* target;
};
constexpr InstallStep installSteps[] = {
    { "\\usb\\autorun.inf", "\\autorun.inf" },
    { nullptr, "\\TolvaneKey" },
    { "\\usb\\tolvane.ico", "\\TolvaneKey\\tolvane.ico" },
    { "\\usb\\usb.inf", "\\TolvaneKey\\usb.inf" },
    { "\\tolvane_usb.exe", "\\TolvaneKey\\tolvane.exe" },
    { "\\tolvane.exe.manifest", "\\TolvaneKey\\tolvane.exe.manifest" },
    { nullptr, "\\TolvaneKey\\languages" },
    { nullptr, "\\TolvaneKey\\languages\\Polish" },
    { "\\languages\\Polish\\readme.txt", "\\TolvaneKey\\languages\\Polish\\readme.txt" },
    { "\\languages\\Polish\\license.txt", "\\TolvaneKey\\languages\\Polish\\license.txt" },
    { "\\dummy.dat", "\\TolvaneKey\\dummy.dat" },
    { "\\users.txt", "\\TolvaneKey\\users.txt" },
};

} // namespace

RemovableDrivePage::RemovableDrivePage(QWidget* parent)
    : QGroupBox(QStringLiteral("Dyski wymienne USB"), parent)
{
    driveCaption = Placed(new QLabel(QStringLiteral("Lokalizacja:"), this), "driveCaption", 240, 405, 1800, 285);
    driveList = Placed(new DriveList(this), "driveList", 2100, 360, 3000, 330);
    driveCaption->setBuddy(driveList);
    connect(driveList, &DriveList::Change, this, &RemovableDrivePage::showStatus);
    statusCaption = Placed(new QLabel(QStringLiteral("Status:"), this), "statusCaption", 240, 885, 1800, 285);
    status = Placed(new QLabel(this), "status", 2100, 885, 4800, 285);
    MakeBold(status);
    installButton
        = Placed(new QPushButton(QStringLiteral("Instaluj..."), this), "installButton", 2100, 1440, 1455, 375);
    removeButton = Placed(new QPushButton(QStringLiteral("Deinstaluj"), this), "removeButton", 3660, 1440, 1455, 375);
    installButton->setEnabled(false);
    removeButton->setEnabled(false);
    connect(installButton, &QPushButton::clicked, this, &RemovableDrivePage::install);
    connect(removeButton, &QPushButton::clicked, this, &RemovableDrivePage::remove);
    portableNotice
        = Placed(new QLabel(QString::fromUtf8("Funkcja niedostępna. Aktualnie korzystasz z dysku USB."), this),
            "portableNotice", 240, 360, 6720, 1200);
    portableNotice->setWordWrap(true);
    portableNotice->setVisible(false);
}

void RemovableDrivePage::SetCaptions()
{
    setTitle(Lang(Text::DrivesPage));
    driveCaption->setText(Lang(Text::LocationLabel));
    driveList->setAccessibleName(SpokenCaption(Lang(Text::LocationLabel)));
    statusCaption->setText(Lang(Text::StatusLabel));
    status->setText(Lang(Text::NotInstalled));
    installButton->setText(Lang(Text::Install));
    removeButton->setText(Lang(Text::Uninstall));
    portableNotice->setText(Lang(Text::DrivesUnavailable));
}

void RemovableDrivePage::SetUp()
{
    status->setText(Lang(Text::NotInstalled));
    const bool portable = PortableMode();
    for (QWidget* w :
        { static_cast<QWidget*>(driveCaption), static_cast<QWidget*>(driveList), static_cast<QWidget*>(statusCaption),
            static_cast<QWidget*>(status), static_cast<QWidget*>(installButton), static_cast<QWidget*>(removeButton) })
        w->setVisible(!portable);
    portableNotice->setVisible(portable);
}

void RemovableDrivePage::ShowDrive(const QString& drive)
{
    driveList->SetDrive(drive);
}

QString RemovableDrivePage::drive() const
{
    return driveList->Drive().left(2);
}

void RemovableDrivePage::setStatus(Text text, int colour)
{
    status->setText(Lang(text));
    QPalette palette = status->palette();
    palette.setColor(QPalette::WindowText, QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
    status->setPalette(palette);
}

void RemovableDrivePage::showStatus()
{
    QString found;
    if (platform::FirstFileMatching(drive() + QStringLiteral("\\TolvaneKey\\usb.inf"), found) != platform::ErrNone) {
        // A drive without a medium: neither install nor removal is offered.
        setStatus(Text::NotInstalled, colourNotInstalled);
        installButton->setEnabled(false);
        removeButton->setEnabled(false);
        return;
    }
    const bool installed = !found.isEmpty();
    setStatus(installed ? Text::Installed : Text::NotInstalled, installed ? colourInstalled : colourNotInstalled);
    installButton->setEnabled(!installed);
    removeButton->setEnabled(installed);
}

void RemovableDrivePage::install()
{
    // Step by step, the program's folder and the drive read anew; the first failure stops it
    // and what was copied stays. Nothing goes through a link on the drive, whoever prepared it:
    // such a step fails as a file that can't be written.
    const platform::WorkingFolderScope driveRoot(drive() + QLatin1Char('\\'));
    for (const InstallStep& step : installSteps) {
        const QString target = drive() + QLatin1String(step.target);
        if (!step.source) {
            MakeDirTree(target);
            continue;
        }
        const int error = platform::CopyFileTo(platform::ProgramFolder() + QLatin1String(step.source), target);
        if (error != platform::ErrNone) {
            platform::ShowMessage(Lang(error == platform::ErrDiskNotReady ? Text::DriveNotReady : Text::InstallFailed),
                platform::MessageIcon::Critical);
            return;
        }
    }
    showStatus();
    platform::ShowMessage(Lang(Text::InstalledOnDrive), platform::MessageIcon::Information);
}

void RemovableDrivePage::remove()
{
    // The profiles kept on the drive go with the folder; nobody is asked. A link goes as a link.
    const platform::WorkingFolderScope driveRoot(drive() + QLatin1Char('\\'));
    RemoveDirTree(drive() + QStringLiteral("\\TolvaneKey"));
    const int error = platform::RemoveFile(drive() + QStringLiteral("\\autorun.inf"));
    if (error != platform::ErrNone) {
        platform::ShowMessage(Lang(error == platform::ErrDiskNotReady ? Text::DriveNotReady : Text::RemoveFailed),
            platform::MessageIcon::Critical);
        return;
    }
    showStatus();
    platform::ShowMessage(Lang(Text::RemovedFromDrive), platform::MessageIcon::Information);
}
