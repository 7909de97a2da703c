// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the silent and the shown update check share: the local version text, the manifest's
// address, the fetch and the comparison.
#include "platform/Inet.h"

#include <QPointer>
#include <QString>

// Major, ".", minor and revision: 2, 1, 0 gives "2.10". The one dot is how it has always been.
QString LocalVersionText();

// The manifest on the maker's server.
QString ManifestUrl();

// GET `url` and wait, letting events run, for as long as the client executes. The body (code
// page text, whole) only for the status "200"; false for anything else or no answer at all.
bool FetchText(platform::HttpClient& inet, const QString& url, QString& body);

// Newer by plain comparison of text: "2.9" is newer than "2.10", and "2.10\r\n" too.
bool UpdateAvailable(bool fetched, const QString& body);

// The news told, with Yes and No; Yes opens the update page.
void OfferUpdate();

// The tick of both check windows: one check at a time (a tick while it waits or asks does
// nothing), no word when the window was unloaded meanwhile, the news offered, or else
// `noNews`, then the window unloaded.
template <typename Form> void CheckOnce(Form* form, void (*noNews)())
{
    if (form->checking)
        return;
    form->checking = true;
    QPointer<Form> self(form);
    QString body;
    const bool fetched = FetchText(*form->client, ManifestUrl(), body);
    if (!self || Form::Loaded() != form)
        return;
    if (UpdateAvailable(fetched, body))
        OfferUpdate();
    else if (noNews)
        noNews();
    Form::Unload();
}
