// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/SplashWindow.h"

#include "core/LanguageTable.h"
#include "platform/Instance.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/ProgramPictures.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

SplashWindow::SplashWindow()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
    , picture(new QLabel(this))
    , rightsNotice(new QLabel(this))
    , tickTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("SplashWindow"));
    setWindowTitle(platform::AppTitle());
    picture->setObjectName(QStringLiteral("picture"));
    rightsNotice->setObjectName(QStringLiteral("rightsNotice"));
    tickTimer->setObjectName(QStringLiteral("tickTimer"));
    picture->setPixmap(SplashPicture(devicePixelRatioF()));
    rightsNotice->setAlignment(Qt::AlignCenter);
    rightsNotice->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, Twips(120));
    layout->addWidget(picture);
    layout->addWidget(rightsNotice);
    tickTimer->setInterval(900); // the stored value; load sets the one that counts
    connect(tickTimer, &QTimer::timeout, this, &SplashWindow::tick);
}

SplashWindow* SplashWindow::Start()
{
    auto* splash = new SplashWindow;
    splash->setAttribute(Qt::WA_DeleteOnClose);
    splash->initialize();
    splash->load();
    splash->show();
    return splash;
}

void SplashWindow::initialize()
{
    // The table comes first: the refusal below is itself a slot.
    LoadLanguage();
    if (platform::CommandLine() == QLatin1String("/restart"))
        return;
    if (platform::AnotherCopyRunning()) {
        platform::ShowMessage(Lang(Text::AlreadyRunning), platform::MessageIcon::Critical);
        platform::EndProcess(0);
    }
}

void SplashWindow::load()
{
    rightsNotice->setText(Lang(Text::Copyright));
    tickTimer->setInterval(1000);
    tickTimer->start();
    ticks = 0;
}

void SplashWindow::tick()
{
    ++ticks;
    if (ticks != 3)
        return;
    tickTimer->stop();
    // The login is up before the splash goes, so that the run never has no window at all.
    Q_EMIT loginDue();
    close();
}
