// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/Base64Codec.h"
#include "core/VaultText.h"

using namespace Qt::StringLiterals;

class tst_base64_codec : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void codecAndEscapes()
    {
        const QByteArray line = QByteArray("YWFh").repeated(16) + "\r\n";
        const std::pair<QByteArray, QByteArray> encoded[] = { { "anna", "YW5uYQ" }, { "ab", "YWI" }, { "", "" },
            { "\xff\xfe", "//4" }, { QByteArray(48, 'a'), line }, { QByteArray(49, 'a'), line + "YQ" } };
        for (const auto& [text, code] : encoded)
            QCOMPARE(Encode64(text), code);
        // Padding comes back as code 0, blanks are passed over, "=" before a character is let through. A bad
        // group is asked about (OK goes on with "???", Cancel stops); a last single character gets "===".
        MessageBoxScript boxes;
        boxes.answers = { platform::MessageAnswer::Ok, platform::MessageAnswer::Cancel };
        const std::pair<QByteArray, QByteArray> decoded[] = { { "YW5u\r\nYQ", QByteArray("anna\0\0", 6) },
            { "//4", QByteArray("\xff\xfe\0", 3) }, { " \r\n\t ", "" }, { "Y W\t5u", "ann" }, { "YW=u", "a`." },
            { "YW5u*W5uYW5u", "ann???ann" }, { "YW5u*W5uYW5u", "ann" }, { "YW5uY", "ann???" } };
        for (const auto& [code, text] : decoded)
            QCOMPARE(Decode64(code), text);
        QCOMPARE((QList<bool> { CheckBase64("", true), CheckBase64("YW==", true), CheckBase64("Y=W=", true),
                     CheckBase64("a*", true), CheckBase64("a*", false) }),
            (QList<bool> { false, true, false, false, false }));
        const QString asked = u"1|PROGRAM ERROR|Illegal Characters <%1> found"_s;
        QCOMPARE(boxes.all(),
            (QStringList { asked.arg(u"*W5u"_s), asked.arg(u"*W5u"_s), asked.arg(u"Y==="_s), u"0|?|Text Error."_s,
                u"0|?|r <*> found in b. text"_s }));

        QByteArray blank = " a=b&c[d]\r\n", semicolon = ";x";
        QCOMPARE(EscapeValue(blank) + EscapeValue(semicolon), QByteArray(" a&1b&0c&2d&3&4&5;x"));
        QCOMPARE(blank + semicolon, QByteArray("&6a=b&c[d]\r\n&7x")); // a leading " " or ";" in place
        // Unknown escapes stay, and a "&" that an escape just made is not read again.
        QCOMPARE(UnescapeValue("a&1b&0c&2&3&4&5&6&7&8&01&"), QByteArray("a=b&c[]\r\n ;&8&1&"));
    }
};

QTEST_GUILESS_MAIN(tst_base64_codec)
#include "tst_base64_codec.moc"
