#include "services/AboutDialog.h"

#include "platform/Cursor.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/Accessibility.h"
#include "services/ClickablePicture.h"
#include "services/LanguageTable.h"
#include "services/ProductLinks.h"
#include "services/UpdateCheck.h"

#include <QPushButton>
#include <QUrl>

AboutDialog::AboutDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("AboutDialog"));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(QStringLiteral("Tolvane - O programie..."));
    setFixedSize(Twips(5880), Twips(4560));
    auto label = [this](const char* name, const char* text, int left, int top, int width) {
        return Placed(new QLabel(QString::fromUtf8(text), this), name, left, top, width, 285);
    };
    auto link = [this](const char* name, int left, int top, int width) {
        auto* l = Placed(new ClickablePicture(this), name, left, top, width, 285);
        l->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        l->SetTabStop(true);
        QPalette blue = l->palette();
        blue.setColor(QPalette::WindowText, QColor(0, 0, 255));
        l->setPalette(blue);
        connect(l, &ClickablePicture::MouseMove, this, [this, l] { LinkLabel_MouseMove(l); });
        return l;
    };
    Label88 = label("Label88", "Tolvane", 120, 120, 5640);
    QFont bold = Label88->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.5);
    Label88->setFont(bold);
    Label86 = label("Label86", "Wersja:", 120, 600, 2100);
    Label1 = Placed(new ClickablePicture(this), "Label1", 2280, 600, 3480, 285);
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label84 = label("Label84", "", 120, 960, 5640);
    Label84->setWordWrap(true);
    Label81 = label("Label81", "Strona producenta:", 120, 1440, 2100);
    Label14 = link("Label14", 2280, 1440, 3480);
    Label79 = label("Label79", "Autor programu:", 120, 1800, 2100);
    Label78 = label("Label78", "Brenmark", 2280, 1800, 3480);
    Label5 = label("Label5", "Nazwa komputera:", 120, 2160, 2100);
    Label4 = label("Label4", "", 2280, 2160, 3480);
    Label6 = label("Label6", "Pomoc techniczna", 120, 2640, 5640);
    Label6->setFont(bold);
    Label7 = label("Label7", "Strona WWW pomocy technicznej:", 120, 3000, 3600);
    Label15 = link("Label15", 3780, 3000, 1980);
    Label8 = label("Label8", "Forum dyskusyjne Brenmark:", 120, 3300, 3600);
    Label16 = link("Label16", 3780, 3300, 1980);
    Label9 = label("Label9", "Kontakt z Brenmark:", 120, 3600, 3600);
    Label17 = link("Label17", 3780, 3600, 1980);
    Command3 = Placed(new QPushButton(QStringLiteral("OK"), this), "Command3", 4440, 4020, 1320, 375);
    Command3->setDefault(true);
    connect(Command3, &QPushButton::clicked, this, &AboutDialog::Command3_Click);
    connect(Label1, &ClickablePicture::Click, this, &AboutDialog::Label1_Click);
    connect(Label14, &ClickablePicture::Click, this, [] { LinkHomePage(); });
    connect(Label15, &ClickablePicture::Click, this, [] { LinkSupportPage(); });
    connect(Label16, &ClickablePicture::Click, this, [] { LinkForum(); });
    connect(Label17, &ClickablePicture::Click, this, [] { LinkContactPage(); });
}

void AboutDialog::Form_Load()
{
    setWindowTitle(Lang(118));
    Label86->setText(Lang(119));
    Label84->setText(Lang(100));
    Label81->setText(Lang(120));
    Label79->setText(Lang(121));
    Label5->setText(Lang(122));
    Label6->setText(Lang(125));
    Label7->setText(Lang(126));
    Label8->setText(Lang(127));
    Label9->setText(Lang(128));
    for (ClickablePicture* l : { Label15, Label16, Label17 })
        l->setText(Lang(135));
    Label14->setText(QUrl(ServerAddress()).host());
    // Each link is read by the caption of its row; three of them say the same "Go >>".
    for (const auto& [link, caption] : { std::pair { Label14, Label81 }, std::pair { Label15, Label7 },
             std::pair { Label16, Label8 }, std::pair { Label17, Label9 } })
        link->setAccessibleName(SpokenCaption(caption->text()));
    Label1->setText(LocalVersionText());
    const QString name = platform::GetComputerNameA().left(256);
    Label4->setText(name.left(name.indexOf(QChar(0))));
}

void AboutDialog::LinkLabel_MouseMove(ClickablePicture* link)
{
    platform::SetCursor(link, platform::IDC_HAND);
    for (ClickablePicture* l : { Label14, Label15, Label16, Label17 }) {
        QFont f = l->font();
        f.setUnderline(l == link);
        l->setFont(f);
    }
}

void AboutDialog::Command3_Click()
{
    Unload();
}

void AboutDialog::Label1_Click()
{
    Unload();
}

void ShowAbout(QWidget* owner)
{
    AboutDialog::Instance(owner)->exec();
}
