// SPDX-License-Identifier: GPL-3.0-or-later
// The update check against a small HTTP server on 127.0.0.1, and the about box.
#include "ProgramRun.h"
#include "core/PasswordDigest.h"
#include "widgets/ClickablePicture.h"
#include "windows/SilentUpdateCheck.h"
#include "windows/UpdateWindow.h"

#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QTcpServer>
#include <QTcpSocket>

namespace {

// Answers every request with the one response it holds; an empty one never answers.
class ManifestServer : public QTcpServer
{
public:
    ManifestServer()
    {
        listen(QHostAddress::LocalHost);
        qputenv("TOLVANE_SERVER_ADDRESS", u"http://127.0.0.1:%1"_s.arg(serverPort()).toLatin1());
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                request += socket->readAll();
                if (!request.contains("\r\n\r\n") || response.isEmpty())
                    return;
                socket->write(response);
                socket->disconnectFromHost();
            });
        });
    }
    ~ManifestServer() override { qputenv("TOLVANE_SERVER_ADDRESS", "http://127.0.0.1:9"); }
    void serve(const QByteArray& status, const QByteArray& body, const QByteArray& extra = {})
    {
        request.clear();
        response = "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + extra
            + "Connection: close\r\n\r\n" + body;
    }
    QByteArray request;
    QByteArray response;
};

// Help > Check for updates, its check ticked at once; the boxes it showed.
QStringList checkFromTheMenu(ProgramRun& run, VaultWindow* vault)
{
    run.boxes.shown.clear();
    ui::onNextModal([](QWidget* update) { static_cast<UpdateWindow*>(update)->checkTick(); });
    ui::menu(vault, { Lang(Text::HelpMenu), Lang(Text::CheckForUpdatesItem) });
    return run.boxes.all();
}

} // namespace

class tst_update : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theAskedCheckAnswersEveryServer()
    {
        ProgramRun run;
        ManifestServer server;
        ShellScript shell;
        VaultWindow* vault = run.start();
        const QStringList news { u"36|Tolvane|"_s + Lang(Text::NewVersionAvailable) };
        const QStringList nothing { u"64|Tolvane|"_s + Lang(Text::LatestVersion) };

        server.serve("200 OK", "2.9");
        run.boxes.answer(platform::MessageAnswer::Yes);
        QCOMPARE(checkFromTheMenu(run, vault), news);
        QVERIFY(server.request.startsWith("GET /updates/tolvane-updates.txt HTTP/1.1\r\n"));
        QVERIFY(shell.calls.size() == 1 && shell.calls[0].file.contains(u"127.0.0.1"_s)); // Yes opens the page
        // Equal, greater as a number but not as a text, equal with a line end, an error status, a redirect, a
        // large body; No opens nothing.
        const std::tuple<QByteArray, QByteArray, QByteArray, bool> answers[] = { { "200 OK", "2.10", {}, false },
            { "200 OK", "10.0", {}, false }, { "200 OK", "2.10\r\n", {}, true }, { "404 Not Found", "9.9", {}, false },
            { "301 Moved Permanently", "9.9", "Location: http://127.0.0.1:9/x\r\n", false },
            { "200 OK", QByteArray(10 * 1000 * 1000, '9'), {}, true } };
        for (const auto& [status, body, extra, isNews] : answers) {
            server.serve(status, body, extra);
            run.boxes.answer(platform::MessageAnswer::No);
            QCOMPARE(checkFromTheMenu(run, vault), isNews ? news : nothing);
        }
        QCOMPARE(shell.calls.size(), 1);
        server.close(); // nobody listens: refused at once
        QCOMPARE(checkFromTheMenu(run, vault), nothing);

        // A silent server: Cancel closes without a word, while the check waits.
        ManifestServer silent;
        silent.response.clear();
        ui::onNextModal([&silent](QWidget* update) {
            QVERIFY(ui::find<QLabel>(update, Lang(Text::CheckingForNewVersion)));
            // The bar is a sign of life only: ten ticks to 100, where it stays.
            auto* window = static_cast<UpdateWindow*>(update);
            for (int i = 0; i < 12; ++i)
                window->advanceBar();
            QCOMPARE(update->findChild<QProgressBar*>()->value(), 100);
            QTimer::singleShot(300, update, [update] { ui::click(update, Lang(Text::Cancel)); });
            window->checkTick(); // waits, with events running, until the cancel
            QVERIFY(silent.request.startsWith("GET "));
        });
        run.boxes.shown.clear();
        ui::menu(vault, { Lang(Text::HelpMenu), Lang(Text::CheckForUpdatesItem) });
        QVERIFY(run.boxes.shown.isEmpty() && ui::windowsOnScreen() == QList<QWidget*> { vault });
    }

    void theAboutBoxBreaksCaptionsAtUnderscoresAndClosesWithEnter()
    {
        ProgramRun run;
        run.world.write(u"program/extra.txt"_s, "120 Home_page\r\n");
        ReadLanguageFile(u"C:\\..\\program\\extra.txt"_s);
        VaultWindow* vault = run.start();
        ShellScript shell;
        // The rows of the caption that hold ink, told apart by blank rows: its lines on screen.
        int lines = 0;
        bool closed = false;
        ui::onNextModal([&](QWidget* about) {
            QLabel* caption = nullptr;
            for (QLabel* l : about->findChildren<QLabel*>())
                caption = l->text() == u"Home\rpage"_s ? l : caption;
            QVERIFY(caption);
            caption->resize(caption->width(), caption->height() * 3);
            const QImage image = caption->grab().toImage();
            bool before = false;
            for (int y = 0; y < image.height(); ++y) {
                bool ink = false;
                for (int x = 0; x < image.width() && !ink; ++x)
                    ink = qGray(image.pixel(x, y)) < 128;
                lines += ink && !before;
                before = ink;
            }
            QTest::keyClick(about->focusWidget(), Qt::Key_Return); // where the focus is at first
            closed = !about->isVisible();
            about->close();
        });
        ui::menu(vault, { Lang(Text::HelpMenu), Lang(Text::AboutItem) });
        QCOMPARE(lines, 2);
        QVERIFY(closed);
        QVERIFY(shell.calls.isEmpty()); // no web page
    }

    void theSilentCheckFollowsATypedLoginAndSpeaksOnlyOfNews()
    {
        ProgramRun run;
        ManifestServer server;
        run.provision();
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"pw"_s));
        QVERIFY(!run.start());
        ui::type(run.login(), Lang(Text::LoginPasswordLabel), u"pw"_s);
        QTest::keyClick(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), Qt::Key_Return);
        VaultWindow* vault = VaultWindow::Loaded();

        for (const QByteArray& body : { QByteArray("2.10"), QByteArray("2.0"), QByteArray("3.0") }) {
            server.serve("200 OK", body);
            vault->startSilentUpdateCheck();
            SilentUpdateCheck* check = SilentUpdateCheck::Loaded();
            QVERIFY(check && !check->isVisible());
            check->checkTick();
            QVERIFY(!SilentUpdateCheck::Loaded());
        }
        QCOMPARE(run.boxes.all(), QStringList(u"36|Tolvane|"_s + Lang(Text::NewVersionAvailable)));
    }
};

QTEST_MAIN(tst_update)
#include "tst_update.moc"
