// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ProductLinks.h"

#include "core/RegistryLayer.h"
#include "platform/Paths.h"
#include "platform/Shell.h"

namespace {

enum class Kind
{
    WebPage,
    Document
};

struct Link
{
    Kind kind;
    const char* english;
    const char* polish;
    const char* deutsch;
};

void OpenLink(const Link& link)
{
    const QString language = GetProgramSetting(QStringLiteral("curLang"));
    const char* path = nullptr;
    if (language == QLatin1String("English"))
        path = link.english;
    else if (language == QLatin1String("Polish"))
        path = link.polish;
    else if (language == QLatin1String("Deutsch"))
        path = link.deutsch;
    if (!path)
        return;
    const QString root = link.kind == Kind::WebPage ? ServerAddress() : platform::ProgramFolder();
    OpenLinkTarget(root + QLatin1String(path));
}

} // namespace

QString ServerAddress()
{
    const QString configured = qEnvironmentVariable("TOLVANE_SERVER_ADDRESS");
    return configured.isEmpty() ? QStringLiteral(TOLVANE_SERVER_ADDRESS) : configured;
}

int OpenLinkTarget(const QString& target)
{
    return platform::OpenThroughShell(nullptr, QString(), target, QString(), QString(), 1);
}

void LinkHomePage()
{
    OpenLink({ Kind::WebPage, "/en", "/pl", "/de" });
}

void LinkReadMe()
{
    OpenLink({ Kind::Document, "\\languages\\english\\readme.txt", "\\languages\\polish\\readme.txt",
        "\\languages\\deutsch\\readme.txt" });
}

void LinkUpdatePage()
{
    OpenLink({ Kind::WebPage, "/en/products/tolvane/update.html", "/pl/produkty/tolvane/update.html",
        "/de/products/tolvane/update.html" });
}

void LinkLicence()
{
    OpenLink({ Kind::Document, "\\languages\\english\\license.txt", "\\languages\\polish\\license.txt",
        "\\languages\\deutsch\\license.txt" });
}

void LinkSupportPage()
{
    OpenLink({ Kind::WebPage, "/en/support.html", "/pl/wsparcie.html", "/de/support.html" });
}

void LinkForum()
{
    OpenLink({ Kind::WebPage, "/forum", "/forum", "/forum" });
}

void LinkContactPage()
{
    OpenLink({ Kind::WebPage, "/en/contact.html", "/pl/kontakt.html", "/de/contact.html" });
}
