// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/AboutDialog.h"

#include "core/LanguageTable.h"
#include "platform/Cursor.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "widgets/ClickablePicture.h"
#include "widgets/ProductLinks.h"
#include "widgets/UpdateCheck.h"

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
        l->setTabStop(true);
        QPalette blue = l->palette();
        blue.setColor(QPalette::WindowText, QColor(0, 0, 255));
        l->setPalette(blue);
        connect(l, &ClickablePicture::mouseMoved, this, [this, l] { underlineLink(l); });
        return l;
    };
    productName = label("productName", "Tolvane", 120, 120, 5640);
    QFont bold = productName->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.5);
    productName->setFont(bold);
    versionCaption = label("versionCaption", "Wersja:", 120, 600, 2100);
    version = Placed(new ClickablePicture(this), "version", 2280, 600, 3480, 285);
    version->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    rightsNotice = label("rightsNotice", "", 120, 960, 5640);
    rightsNotice->setWordWrap(true);
    homePageCaption = label("homePageCaption", "Strona producenta:", 120, 1440, 2100);
    homePageLink = link("homePageLink", 2280, 1440, 3480);
    authorCaption = label("authorCaption", "Autor programu:", 120, 1800, 2100);
    author = label("author", "Brenmark", 2280, 1800, 3480);
    computerCaption = label("computerCaption", "Nazwa komputera:", 120, 2160, 2100);
    computerName = label("computerName", "", 2280, 2160, 3480);
    supportHeading = label("supportHeading", "Pomoc techniczna", 120, 2640, 5640);
    supportHeading->setFont(bold);
    supportCaption = label("supportCaption", "Strona WWW pomocy technicznej:", 120, 3000, 3600);
    supportLink = link("supportLink", 3780, 3000, 1980);
    forumCaption = label("forumCaption", "Forum dyskusyjne Brenmark:", 120, 3300, 3600);
    forumLink = link("forumLink", 3780, 3300, 1980);
    contactCaption = label("contactCaption", "Kontakt z Brenmark:", 120, 3600, 3600);
    contactLink = link("contactLink", 3780, 3600, 1980);
    closeButton = Placed(new QPushButton(QStringLiteral("OK"), this), "closeButton", 4440, 4020, 1320, 375);
    closeButton->setDefault(true);
    // The first focus is OK, so that Enter closes the box rather than opening the first link.
    closeButton->setFocus();
    connect(closeButton, &QPushButton::clicked, this, [] { Unload(); });
    connect(version, &ClickablePicture::clicked, this, [] { Unload(); }); // the version closes it too
    connect(homePageLink, &ClickablePicture::clicked, this, [] { LinkHomePage(); });
    connect(supportLink, &ClickablePicture::clicked, this, [] { LinkSupportPage(); });
    connect(forumLink, &ClickablePicture::clicked, this, [] { LinkForum(); });
    connect(contactLink, &ClickablePicture::clicked, this, [] { LinkContactPage(); });
}

void AboutDialog::load()
{
    setWindowTitle(Lang(Text::AboutTitle));
    versionCaption->setText(Lang(Text::VersionLabel));
    rightsNotice->setText(Lang(Text::Copyright));
    homePageCaption->setText(Lang(Text::MakerSiteLabel));
    authorCaption->setText(Lang(Text::AuthorLabel));
    computerCaption->setText(Lang(Text::ComputerNameLabel));
    supportHeading->setText(Lang(Text::TechnicalSupport));
    supportCaption->setText(Lang(Text::SupportPageLabel));
    forumCaption->setText(Lang(Text::ForumLabel));
    contactCaption->setText(Lang(Text::ContactLabel));
    for (ClickablePicture* l : { supportLink, forumLink, contactLink })
        l->setText(Lang(Text::Go));
    homePageLink->setText(QUrl(ServerAddress()).host());
    // Each link is read by the caption of its row; three of them say the same "Go >>".
    for (const auto& [link, caption] :
        { std::pair { homePageLink, homePageCaption }, std::pair { supportLink, supportCaption },
            std::pair { forumLink, forumCaption }, std::pair { contactLink, contactCaption } })
        link->setAccessibleName(SpokenCaption(caption->text()));
    version->setText(LocalVersionText());
    const QString name = platform::ComputerName().left(256);
    computerName->setText(name.left(name.indexOf(QChar(0))));
}

void AboutDialog::underlineLink(ClickablePicture* link)
{
    platform::ShowHandCursor(link);
    for (ClickablePicture* l : { homePageLink, supportLink, forumLink, contactLink }) {
        QFont f = l->font();
        f.setUnderline(l == link);
        l->setFont(f);
    }
}

void ShowAbout(QWidget* owner)
{
    AboutDialog::Instance(owner)->exec();
}
