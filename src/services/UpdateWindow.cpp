#include "services/UpdateWindow.h"

#include "platform/Inet.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "services/UpdateCheck.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

UpdateWindow::UpdateWindow(QWidget* owner)
    : SingleDialog(owner)
    , Timer1(new QTimer(this))
    , Timer2(new QTimer(this))
    , Inet(std::make_unique<platform::Inet>())
{
    setObjectName(QStringLiteral("UpdateWindow"));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(platform::AppTitle());
    setFixedSize(Twips(4920), Twips(1800));
    lblInfo = Placed(new QLabel(this), "lblInfo", 120, 120, 4680, 285);
    PB1 = Placed(new QProgressBar(this), "PB1", 120, 540, 4680, 300);
    PB1->setRange(0, 100);
    PB1->setValue(0);
    cmdCanc = Placed(new QPushButton(this), "cmdCanc", 3480, 1080, 1320, 375);
    connect(cmdCanc, &QPushButton::clicked, this, &UpdateWindow::cmdCanc_Click);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(900);
    connect(Timer1, &QTimer::timeout, this, &UpdateWindow::Timer1_Timer);
    Timer2->setObjectName(QStringLiteral("Timer2"));
    Timer2->setInterval(700);
    connect(Timer2, &QTimer::timeout, this, &UpdateWindow::Timer2_Timer);
}

UpdateWindow::~UpdateWindow() = default;

void UpdateWindow::Form_Load()
{
    lblInfo->setText(Lang(145));
    cmdCanc->setText(Lang(147));
    Timer1->start();
    Timer2->start();
}

void UpdateWindow::Form_Unload()
{
    Timer1->stop();
    Timer2->stop();
    Inet->Cancel();
}

void UpdateWindow::Timer1_Timer()
{
    // A failed fetch reads as "nothing new".
    CheckOnce(this, [] { platform::MsgBox(Lang(146), 64); });
}

void UpdateWindow::Timer2_Timer()
{
    // A sign of life only: ten ticks to the end, whatever the network does.
    if (PB1->value() >= 100)
        Timer2->stop();
    else
        PB1->setValue(PB1->value() + 10);
}

void UpdateWindow::cmdCanc_Click()
{
    Timer1->stop();
    Timer2->stop();
    Unload();
}

void ShowUpdateCheck(QWidget* owner)
{
    UpdateWindow::Instance(owner)->exec();
}
