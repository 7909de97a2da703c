// Screenshots of the vault window, the settings window and the password generator on a real X
// server at 100 % and 200 % scale. The same executable takes the shots (`--shoot DIR SCALE`,
// run once per scale on a private Xvfb) and checks them. With TOLVANE_SCREENSHOTS_DIR set, the
// pictures are kept there (scripts/screenshots.sh refreshes the documentation's with it).
#include "VaultRun.h"
#include "XvfbServer.h"
#include "platform/Twips.h"
#include "services/ProgramPictures.h"
#include "settings/SettingsWindow.h"
#include "tools/PasswordGenerator.h"

#include <QImage>
#include <QLabel>

namespace {

Entry sample(const char* title, const char* name, const char* age, const char* address)
{
    Entry e;
    e.title = title;
    e.userName = name;
    e.password = age;
    e.url = address;
    return e;
}

bool save(QWidget* widget, const QString& dir, const QString& name, const QString& scale)
{
    return widget->grab().save(dir + QLatin1Char('/') + name + QLatin1Char('-') + scale + QStringLiteral(".png"));
}

// A run of the program with a small vault, an entry on show, then the two tool windows.
int shoot(const QString& dir, const QString& scale)
{
    VaultRun run;
    run.writeVault({ sample("Bank", "j.smith", "Kq7-hill-21", "https://bank.example"),
        sample("E-mail", "jsmith@mail.example", "sun4Moon!", "https://mail.example"),
        sample("Forum", "jsmith", "r3d-apple", "https://forum.example"),
        sample("Shop", "john.smith", "4-tulips", "https://shop.example") });
    VaultWindow* main = run.start();
    if (!main)
        return 2;
    VaultRun::activate(main);
    VaultRun::clickRow(main->list, 1);
    // The mouse rests on the copy button, which shows the look of a button under the mouse.
    QTest::mouseMove(main->copyButton);
    QTest::qWait(200);
    bool saved = save(main, dir, QStringLiteral("main"), scale);
    saved = save(main->copyButton, dir, QStringLiteral("toolbar"), scale) && saved;

    SettingsWindow* settings = SettingsWindow::Instance();
    VaultRun::activate(settings);
    QTest::qWait(200);
    saved = save(settings, dir, QStringLiteral("settings"), scale) && saved;
    settings->hide();

    PasswordGenerator generator(main);
    generator.deliveryMode = QStringLiteral("0");
    VaultRun::activate(&generator);
    generator.generate();
    QTest::qWait(200);
    saved = save(&generator, dir, QStringLiteral("generator"), scale) && saved;
    return saved ? 0 : 1;
}

// True when every 2 by 2 block of the picture is one colour: a picture drawn at half the
// resolution and blown up.
bool pixelDoubled(const QImage& image)
{
    for (int y = 0; y + 1 < image.height(); y += 2) {
        for (int x = 0; x + 1 < image.width(); x += 2) {
            const QRgb c = image.pixel(x, y);
            if (image.pixel(x + 1, y) != c || image.pixel(x, y + 1) != c || image.pixel(x + 1, y + 1) != c)
                return false;
        }
    }
    return true;
}

} // namespace

class tst_screenshots_xvfb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsAtBothScales()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
            QSKIP("Xvfb is not installed");
        XvfbServer x;
        QVERIFY2(!x.start().isEmpty(), qPrintable(x.report()));
        // With a notification area the tray's menu stays out of the window's menu bar.
        QVERIFY(x.startTray());
        QTemporaryDir temporary;
        const QString kept = qEnvironmentVariable("TOLVANE_SCREENSHOTS_DIR");
        const QString dir = kept.isEmpty() ? temporary.path() : kept;
        QDir().mkpath(dir);
        for (const char* scale : { "100", "200" }) {
            QProcessEnvironment env = x.environment();
            env.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(QByteArray(scale).toInt() / 100));
            QProcess shooter;
            shooter.setProcessEnvironment(env);
            shooter.start(
                QCoreApplication::applicationFilePath(), { QStringLiteral("--shoot"), dir, QLatin1String(scale) });
            QVERIFY(shooter.waitForFinished(60000));
            QCOMPARE(shooter.exitCode(), 0);
        }

        for (const char* name : { "main", "settings", "generator", "toolbar" }) {
            const QImage normal(dir + QLatin1Char('/') + QLatin1String(name) + QStringLiteral("-100.png"));
            const QImage doubled(dir + QLatin1Char('/') + QLatin1String(name) + QStringLiteral("-200.png"));
            QVERIFY2(!normal.isNull() && !doubled.isNull(), name);
            // The same layout in twips at both scales, every pixel of it twice over.
            QCOMPARE(doubled.size(), normal.size() * 2);
        }
        // A toolbar button is one twips height at both scales, and its pictures are drawn at the
        // screen's resolution, not blown up from the small ones.
        const QImage button(dir + QStringLiteral("/toolbar-100.png"));
        QCOMPARE(button.size(), QSize(25, 25));
        QVERIFY(!pixelDoubled(QImage(dir + QStringLiteral("/toolbar-200.png"))));
        // The hover look: the frame's outer line along the top edge, in the frame's colour.
        QCOMPARE(button.pixelColor(12, 0), QColor(0x2f, 0x6f, 0xb3));
    }
};

int main(int argc, char** argv)
{
    if (argc == 4 && QByteArray(argv[1]) == "--shoot") {
        QApplication app(argc, argv);
        QApplication::setWindowIcon(ProgramIcon());
        SetDesignFont(); // as the program's start does
        return shoot(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    }
    QApplication app(argc, argv);
    tst_screenshots_xvfb test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_screenshots_xvfb.moc"
