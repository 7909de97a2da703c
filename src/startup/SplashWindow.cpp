#include "startup/SplashWindow.h"

#include "platform/Instance.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "services/ProgramPictures.h"
#include "startup/LoginDialog.h"
#include "storage/DataRoot.h"
#include "storage/FileExist.h"

#include <QVBoxLayout>

SplashWindow::SplashWindow()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
    , Image39(new QLabel(this))
    , Label2(new QLabel(this))
    , tmrTime(new QTimer(this))
{
    setObjectName(QStringLiteral("SplashWindow"));
    setWindowTitle(platform::AppTitle());
    Image39->setObjectName(QStringLiteral("Image39"));
    Label2->setObjectName(QStringLiteral("Label2"));
    tmrTime->setObjectName(QStringLiteral("tmrTime"));
    Image39->setPixmap(SplashPicture(devicePixelRatioF()));
    Label2->setAlignment(Qt::AlignCenter);
    Label2->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, Twips(120));
    layout->addWidget(Image39);
    layout->addWidget(Label2);
    tmrTime->setInterval(900); // the stored value; Form_Load sets the one that counts
    connect(tmrTime, &QTimer::timeout, this, &SplashWindow::tmrTime_Timer);
}

void SplashWindow::Form_Initialize()
{
    platform::InitCommonControls();
    // The table comes first: the refusal below is itself a slot.
    LoadLanguage();
    if (platform::CommandLine() == QLatin1String("/restart"))
        return;
    if (platform::PrevInstance()) {
        platform::MsgBox(Lang(101), 16);
        platform::EndProcess(0);
    }
}

void SplashWindow::Form_Load()
{
    platform::CreateMutexA(platform::AppTitle());
    Label2->setText(Lang(100));
    tmrTime->setInterval(1000);
    tmrTime->start();
    tickCount = 0;
    UsbMode = FileExist(platform::AppPath() + QStringLiteral("\\usb.inf")) ? 1 : 0;
}

void SplashWindow::tmrTime_Timer()
{
    ++tickCount;
    if (tickCount != 3)
        return;
    tmrTime->stop();
    // The login is up before the splash goes, so that the run never has no window at all.
    ShowLogin();
    close();
}
