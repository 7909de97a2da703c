// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/UpdateCheck.h"

#include "core/LanguageTable.h"
#include "platform/CodePage.h"
#include "platform/Inet.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "widgets/ProductLinks.h"

#include <QStringList>

QString LocalVersionText()
{
    return QString::number(platform::VersionMajor()) + QLatin1Char('.') + QString::number(platform::VersionMinor())
        + QString::number(platform::VersionRevision());
}

QString ManifestUrl()
{
    return ServerAddress() + QStringLiteral("/updates/tolvane-updates.txt");
}

bool FetchText(platform::HttpClient& inet, const QString& url, QString& body)
{
    body.clear();
    inet.start(url); // a start while one runs fails, and the wait below serves that one
    while (inet.isRunning())
        platform::ProcessEventsWaiting();
    const QString header = inet.header();
    const QStringList status = header.left(header.indexOf(QStringLiteral("\r\n"))).split(QLatin1Char(' '));
    QByteArray bytes;
    for (QByteArray chunk = inet.takeChunk(1000000); !chunk.isEmpty(); chunk = inet.takeChunk(1000000))
        bytes += chunk;
    if (status.value(1) != QLatin1String("200"))
        return false;
    body = platform::FromCodePage(bytes);
    return true;
}

bool UpdateAvailable(bool fetched, const QString& body)
{
    return fetched && body > LocalVersionText();
}

void OfferUpdate()
{
    if (platform::ShowMessage(
            Lang(Text::NewVersionAvailable), platform::MessageButtons::YesNo | platform::MessageIcon::Question)
        == platform::MessageAnswer::Yes)
        LinkUpdatePage();
}
