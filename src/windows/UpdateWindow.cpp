// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/UpdateWindow.h"

#include "core/LanguageTable.h"
#include "platform/Inet.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/UpdateCheck.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

UpdateWindow::UpdateWindow(QWidget* owner)
    : SingleDialog(owner)
    , checkTimer(new QTimer(this))
    , barTimer(new QTimer(this))
    , client(std::make_unique<platform::HttpClient>())
{
    setObjectName(QStringLiteral("UpdateWindow"));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(platform::AppTitle());
    setFixedSize(Twips(4920), Twips(1800));
    info = Placed(new QLabel(this), "info", 120, 120, 4680, 285);
    progressBar = Placed(new QProgressBar(this), "progressBar", 120, 540, 4680, 300);
    progressBar->setRange(0, 100);
    progressBar->setValue(0);
    cancelButton = Placed(new QPushButton(this), "cancelButton", 3480, 1080, 1320, 375);
    connect(cancelButton, &QPushButton::clicked, this, &UpdateWindow::cancel);
    checkTimer->setObjectName(QStringLiteral("checkTimer"));
    checkTimer->setInterval(900);
    connect(checkTimer, &QTimer::timeout, this, &UpdateWindow::checkTick);
    barTimer->setObjectName(QStringLiteral("barTimer"));
    barTimer->setInterval(700);
    connect(barTimer, &QTimer::timeout, this, &UpdateWindow::advanceBar);
}

UpdateWindow::~UpdateWindow() = default;

void UpdateWindow::load()
{
    info->setText(Lang(Text::CheckingForNewVersion));
    cancelButton->setText(Lang(Text::Cancel));
    checkTimer->start();
    barTimer->start();
}

void UpdateWindow::onUnload()
{
    checkTimer->stop();
    barTimer->stop();
    client->cancel();
}

void UpdateWindow::checkTick()
{
    // A failed fetch reads as "nothing new".
    CheckOnce(this, [] { platform::ShowMessage(Lang(Text::LatestVersion), platform::MessageIcon::Information); });
}

void UpdateWindow::advanceBar()
{
    // A sign of life only: ten ticks to the end, whatever the network does.
    if (progressBar->value() >= 100)
        barTimer->stop();
    else
        progressBar->setValue(progressBar->value() + 10);
}

void UpdateWindow::cancel()
{
    checkTimer->stop();
    barTimer->stop();
    Unload();
}

void ShowUpdateCheck(QWidget* owner)
{
    UpdateWindow::Instance(owner)->exec();
}
