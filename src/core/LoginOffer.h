// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which profile the login offers and whether a typed password opens it: the rules that the
// login window and the command-line tool share, so that the two never disagree.
#include <QString>
#include <QStringList>

struct LoginOffer
{
    enum class Kind
    {
        FirstStart, // Administrator has no marker: it opens, no password looked at
        DefaultLost, // the default profile has no marker: Administrator is offered after a message
        Offered // the preselection of the remembered, default or switched-to profile
    };
    Kind kind = Kind::Offered;
    // The name the list shows chosen; empty when none could be chosen.
    QString profile;
};

// `listed` is the list of users.txt: a name that is not listed can't be chosen, and choosing
// it leaves the choice as it was.
LoginOffer OfferedLogin(const QStringList& listed);

// The stored `password` value of the profile: empty means it opens without a prompt.
QString StoredPassword(const QString& profile);

// The typed text opens the profile when its digest is the stored value, exactly.
bool PasswordOpens(const QString& stored, const QString& typed);
