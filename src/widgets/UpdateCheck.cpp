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
    return QString::number(platform::AppMajor()) + QLatin1Char('.') + QString::number(platform::AppMinor())
        + QString::number(platform::AppRevision());
}

QString ManifestUrl()
{
    return ServerAddress() + QStringLiteral("/updates/tolvane-updates.txt");
}

bool FetchText(platform::Inet& inet, const QString& url, QString& body)
{
    body.clear();
    inet.Execute(url); // a start while one runs fails, and the wait below serves that one
    while (inet.StillExecuting())
        platform::DoEventsWaiting();
    const QString header = inet.GetHeader();
    const QStringList status = header.left(header.indexOf(QStringLiteral("\r\n"))).split(QLatin1Char(' '));
    QByteArray bytes;
    for (QByteArray chunk = inet.GetChunk(1000000); !chunk.isEmpty(); chunk = inet.GetChunk(1000000))
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
    if (platform::MsgBox(Lang(144), platform::MB_YESNO | platform::MB_ICONQUESTION) == platform::IDYES)
        LinkUpdatePage();
}
