#include "TestSupport.h"
#include "startup/PasswordDigest.h"

#include <QCryptographicHash>

class tst_md5 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void mixedCaseDigestText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("digest");
        // RFC 1321 digests, written the program's way: bytes below 16 as "0" and an upper-case
        // digit, the others in lower case.
        QTest::newRow("empty") << QString() << QStringLiteral("d41d8cd98f00b204e9800998ecf8427e");
        QTest::newRow("a") << QStringLiteral("a") << QStringLiteral("0Cc175b9c0f1b6a831c399e269772661");
        QTest::newRow("abc") << QStringLiteral("abc") << QStringLiteral("900150983cd24fb0d6963f7d28e17f72");
        QTest::newRow("message digest") << QStringLiteral("message digest")
                                        << QStringLiteral("f96b697d7cb7938d525a2f31aaf161d0");
    }
    void mixedCaseDigestText()
    {
        QFETCH(QString, text);
        QFETCH(QString, digest);
        QCOMPARE(MD5Hex(text), digest);
    }

    void bytesTenToFifteenAreUpperCase()
    {
        // Plain lower-case hexadecimal would refuse every password whose digest holds 0x0A-0x0F.
        int seen = 0;
        for (int i = 0; i < 200 && seen < 5; ++i) {
            const QString text = QStringLiteral("pw%1").arg(i);
            const QByteArray raw = QCryptographicHash::hash(text.toLatin1(), QCryptographicHash::Md5);
            QString expected;
            bool hasLowByte = false;
            for (char c : raw) {
                const auto b = static_cast<uchar>(c);
                hasLowByte = hasLowByte || (b >= 10 && b < 16);
                expected += b < 16 ? QStringLiteral("0%1").arg(b, 0, 16).toUpper() : QStringLiteral("%1").arg(b, 2, 16);
            }
            if (!hasLowByte)
                continue;
            ++seen;
            QCOMPARE(MD5Hex(text), expected);
            QVERIFY(MD5Hex(text) != QString::fromLatin1(raw.toHex()));
        }
        QVERIFY(seen > 0);
    }

    void codePageBytesAreHashed()
    {
        // "é" is one byte (0xE9) in the code page, not the two of UTF-8.
        qputenv("TOLVANE_CODEPAGE", "1252");
        const QByteArray raw = QCryptographicHash::hash(QByteArray("\xe9"), QCryptographicHash::Md5);
        QCOMPARE(MD5Hex(QStringLiteral("\u00e9")).toLower(), QString::fromLatin1(raw.toHex()));
    }
};

QTEST_GUILESS_MAIN(tst_md5)
#include "tst_md5.moc"
