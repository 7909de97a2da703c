// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/PasswordDigest.h"

class tst_password_digest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void digestsInTheStoredMixedCase()
    {
        // A byte below 16 is stored as "0" and an upper-case digit (plain hexadecimal would refuse
        // every password whose digest holds 0x0A..0x0F); a text is hashed as its code-page bytes.
        qputenv("TOLVANE_CODEPAGE", "1252");
        const std::pair<const char*, const char*> rows[] = { { "", "d41d8cd98f00b204e9800998ecf8427e" },
            { "a", "0Cc175b9c0f1b6a831c399e269772661" }, { "abc", "900150983cd24fb0d6963f7d28e17f72" },
            { "\u00e9", "3406877694691ddd1dfb0Aca54681407" } }; // one byte 0xE9, not the two of UTF-8
        for (const auto& [text, digest] : rows)
            QCOMPARE(MD5Hex(QString::fromUtf8(text)), QLatin1String(digest));
    }
};

QTEST_GUILESS_MAIN(tst_password_digest)
#include "tst_password_digest.moc"
