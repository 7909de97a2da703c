#include "TestSupport.h"
#include "storage/Base64Codec.h"
#include "storage/VaultText.h"
#include "vault/Scramble.h"

class tst_codecs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void encodeWritesNoPaddingAndBreaksLines()
    {
        QCOMPARE(Encode64("anna"), QByteArray("YW5uYQ"));
        QCOMPARE(Encode64(""), QByteArray());
        QCOMPARE(Encode64("ab"), QByteArray("YWI"));
        const QByteArray a48(48, 'a');
        QVERIFY(Encode64(a48).endsWith("\r\n"));
        QCOMPARE(Encode64(a48).size(), 66);
        const QByteArray e49 = Encode64(QByteArray(49, 'a'));
        QCOMPARE(e49.indexOf("\r\n"), 64);
        QCOMPARE(e49.size(), 64 + 2 + 2);
        QVERIFY(!Encode64(QByteArray(300, '\xff')).contains('='));
    }

    void decodeKeepsPaddingAndIgnoresBlanks()
    {
        QCOMPARE(Decode64("YW5uYQ"), QByteArray("anna\0\0", 6));
        QCOMPARE(Decode64("YWI"), QByteArray("ab\0", 3));
        QCOMPARE(Decode64(""), QByteArray());
        QCOMPARE(Decode64(" \r\n\t "), QByteArray());
        QCOMPARE(Decode64("YW5u\r\nYQ"), Decode64("YW5uYQ"));
        QCOMPARE(Decode64("Y W\t5u"), QByteArray("ann"));
        // "=" followed by another character at n - 1 is let through, as it always was.
        QCOMPARE(Decode64("YW=u").size(), 3);
    }

    void badGroupsAskAndOkLeavesQuestionMarks()
    {
        MessageBoxScript boxes;
        QCOMPARE(Decode64("YW5u*W5uYW5u"), QByteArray("ann???ann"));
        QCOMPARE(boxes.shown.size(), 1);
        QCOMPARE(boxes.shown.first().text, QStringLiteral("Illegal Characters <*W5u> found"));
        QCOMPARE(boxes.shown.first().title, QStringLiteral("PROGRAM ERROR"));
        QCOMPARE(boxes.shown.first().flags, 1);
        boxes.answer(platform::IDCANCEL);
        QCOMPARE(Decode64("YW5u*W5uYW5u"), QByteArray("ann"));
        // A last group of one character is filled with three "=", and the first is refused.
        QCOMPARE(Decode64("YW5uY"), QByteArray("ann???"));
        QCOMPARE(boxes.shown.last().text, QStringLiteral("Illegal Characters <Y===> found"));
    }

    void sextetsAndChecks()
    {
        QCOMPARE(SextetChar(64), '?');
        QCOMPARE(SextetChar(-1), '?');
        QCOMPARE(SextetValue('='), 0);
        QCOMPARE(SextetValue('*'), 255);
        QVERIFY(!CheckBase64("", false));
        QVERIFY(CheckBase64("YW==", false));
        QVERIFY(!CheckBase64("Y=W=", false));
        MessageBoxScript boxes;
        QVERIFY(!CheckBase64("a*", true));
        QCOMPARE(boxes.shown.first().text, QStringLiteral("r <*> found in b. text"));
        QCOMPARE(boxes.shown.first().title, QStringLiteral("?"));
    }

    void escapeAsymmetry()
    {
        QByteArray field = " a=b&c[d]\r\n";
        QCOMPARE(EscapeValue(field), QByteArray(" a&1b&0c&2d&3&4&5"));
        QCOMPARE(field, QByteArray("&6a=b&c[d]\r\n")); // the caller's variable changed, not the result
        QByteArray semicolon = ";x";
        QCOMPARE(EscapeValue(semicolon), QByteArray(";x"));
        QCOMPARE(semicolon, QByteArray("&7x"));
        QCOMPARE(UnescapeValue("a&1b&0c&2&3&4&5&6&7&8&"), QByteArray("a=b&c[]\r\n ;&8&"));
        // A "&" that an escape just made is not read again.
        QCOMPARE(UnescapeValue("&01"), QByteArray("&1"));
    }

    void scramblers()
    {
        // Meaningful characters at 1, 4, 7 of the inner part, each two below its real code.
        // The last character that counts is dropped, as the operation always did.
        QCOMPARE(DecodeBMK(QByteArray("x") + "_xxaxxbxx" + "yy"), QByteArray("ac"));
        const QByteArray filler = Hirbush(50);
        QCOMPARE(filler.size(), 49);
        for (char c : filler)
            QVERIFY(static_cast<uchar>(c) >= 36 && static_cast<uchar>(c) <= 235);
    }
};

QTEST_GUILESS_MAIN(tst_codecs)
#include "tst_codecs.moc"
