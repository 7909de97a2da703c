#include "services/frmContainer.h"

#include "platform/Twips.h"
#include "storage/DataRoot.h"
#include "storage/modFileExist.h"
#include "storage/modIni2.h"
#include "vault/frmMain.h"

namespace {

frmContainer*& instancePointer()
{
    static frmContainer* form = nullptr;
    return form;
}

} // namespace

frmContainer* frmContainer::Instance()
{
    if (!instancePointer()) {
        instancePointer() = new frmContainer;
        instancePointer()->Form_Load();
    }
    return instancePointer();
}

frmContainer* frmContainer::Loaded()
{
    return instancePointer();
}

void frmContainer::Unload()
{
    frmContainer* form = instancePointer();
    if (!form)
        return;
    instancePointer() = nullptr;
    form->Form_Unload();
    form->deleteLater();
}

frmContainer::frmContainer()
{
    setObjectName(QStringLiteral("frmContainer"));
}

QString frmContainer::TipText(const QString& profile)
{
    QString text = QStringLiteral("Tolvane \r\n") + profile + QChar(0);
    return text.leftJustified(64, QLatin1Char(' '), true);
}

void frmContainer::Form_Load()
{
    move(-Twips(1000), -Twips(1000));
    // Taking the vault window's icon is its first use: its whole load runs here, before the
    // options below are looked at.
    setWindowIcon(frmMain::Instance()->windowIcon());
    tip = TipText(CurrentProfile());
    const QString cfg = ProfileFile(QStringLiteral("cfg.txt"));
    if (!FileExist(cfg)) {
        for (int n = 1; n <= 5; ++n)
            WriteIni(Keys::setts, Keys::option(n), QStringLiteral("1"), cfg);
    }
}

void frmContainer::Form_Unload() { }
