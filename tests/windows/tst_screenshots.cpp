// SPDX-License-Identifier: GPL-3.0-or-later
// The vault, settings and generator windows at 100 % and 200 %, drawn by this test run again with
// TOLVANE_SHOOT=DIR on whatever screen it has; kept in TOLVANE_SCREENSHOTS_DIR if set (the
// screenshots script runs it on an X server with a notification area).
#include "ProgramRun.h"
#include "platform/Twips.h"
#include "windows/PasswordGenerator.h"

#include <QProcess>

class tst_screenshots : public QObject
{
    Q_OBJECT

    QTemporaryDir temporary;
    QString dir; // of the shots

    QString png(const char* name, qreal ratio) const
    {
        return QStringLiteral("%1/%2-%3.png").arg(dir, QLatin1String(name)).arg(qRound(ratio * 100));
    }

    // The run that takes the shots: a small vault with an entry on show, then the two tool
    // windows, each saved as NAME-SCALE.png.
    void shoot()
    {
        const auto save = [this](QWidget* w, const char* n) { QVERIFY(w->grab().save(png(n, w->devicePixelRatio()))); };
        SetDesignFont(); // as the program's start does
        ProgramRun run;
        VaultWindow* vault = run.startActive({ { "Bank", {}, {}, {}, {}, {}, {}, {} },
            { "E-mail", "sun4Moon!", {}, "jsmith@mail.example", "https://mail.example", {}, {}, {} },
            { "Forum", {}, {}, {}, {}, {}, {}, {} }, { "Shop", {}, {}, {}, {}, {}, {}, {} } });
        QVERIFY(vault);
        ui::clickRow(vault, Lang(Text::PasswordList), 1);
        // The mouse rests on the copy button, which shows the look of a button under the mouse.
        QTest::mouseMove(ui::get(vault, Lang(Text::CopyItem)));
        QTest::qWait(200);
        save(vault, "main");
        save(ui::get(vault, Lang(Text::CopyItem)), "toolbar");
        ui::menu(vault, { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
        ui::activate(ui::window(QStringLiteral("Ustawienia...")));
        save(ui::window(QStringLiteral("Ustawienia...")), "settings");
        PasswordGenerator generator(nullptr, nullptr);
        ui::activate(&generator);
        ui::click(&generator, Lang(Text::Generate));
        generator.keepUseButtonInStep();
        save(&generator, "generator");
    }

private Q_SLOTS:
    void windowsAtBothScales()
    {
        if (!(dir = qEnvironmentVariable("TOLVANE_SHOOT")).isEmpty())
            return shoot(); // the run that takes the shots
        dir = qEnvironmentVariable("TOLVANE_SCREENSHOTS_DIR", temporary.path());
        qputenv("TOLVANE_SHOOT", dir.toLocal8Bit());
        for (const char* scale : { "1", "2" }) {
            qputenv("QT_SCALE_FACTOR", scale);
            QCOMPARE(QProcess::execute(QCoreApplication::applicationFilePath(), {}), 0);
        }
        // The same layout in twips at both scales, every pixel of it twice over.
        for (const char* name : { "main", "settings", "generator", "toolbar" })
            QCOMPARE(QImage(png(name, 2)).size(), QImage(png(name, 1)).size() * 2);
        // A toolbar button is one twips height at both scales, its pictures drawn at the screen's resolution
        // (not blown up from the small ones), and under the mouse its frame's outer line tops it.
        const QImage button(png("toolbar", 1)), doubled(png("toolbar", 2));
        QCOMPARE(button.size(), QSize(25, 25));
        QVERIFY(doubled.scaled(button.size()).scaled(doubled.size()).convertToFormat(doubled.format()) != doubled);
        QCOMPARE(button.pixelColor(12, 0), QColor(0x2f, 0x6f, 0xb3));
    }
};

QTEST_MAIN(tst_screenshots)
#include "tst_screenshots.moc"
