// The update check against a small HTTP server on 127.0.0.1: newer, equal, equal with a line
// end, an error status, a redirect, a large body and no answer at all; and the about box.
#include "VaultRun.h"
#include "services/AboutDialog.h"
#include "services/ClickablePicture.h"
#include "services/ProductLinks.h"
#include "services/SilentUpdateCheck.h"
#include "services/UpdateCheck.h"
#include "services/UpdateWindow.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
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
        qputenv("TOLVANE_SERVER_ADDRESS", QStringLiteral("http://127.0.0.1:%1").arg(serverPort()).toLatin1());
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

} // namespace

class tst_update : public QObject
{
    Q_OBJECT

    // One check of the shown window; the boxes it showed.
    static QStringList checkShown(VaultRun& run)
    {
        run.boxes.shown.clear();
        UpdateWindow* update = UpdateWindow::Instance(nullptr);
        update->show();
        update->checkTick();
        QStringList texts;
        for (const auto& box : run.boxes.shown)
            texts << QStringLiteral("%1 %2").arg(box.flags).arg(box.text);
        if (UpdateWindow::Loaded())
            texts << QStringLiteral("the window stayed");
        return texts;
    }

private Q_SLOTS:
    void versionTextHasOneDot()
    {
        QCOMPARE(LocalVersionText(), QStringLiteral("2.10"));
        QVERIFY(UpdateAvailable(true, QStringLiteral("2.9")));
        QVERIFY(!UpdateAvailable(true, QStringLiteral("2.10")));
        QVERIFY(UpdateAvailable(true, QStringLiteral("2.10\n")));
        QVERIFY(!UpdateAvailable(true, QStringLiteral("10.0")));
        QVERIFY(!UpdateAvailable(false, QStringLiteral("9")));
    }

    void shownCheckAnswersEveryServer()
    {
        VaultRun run;
        ManifestServer server;
        ShellScript shell;
        const QString news = QStringLiteral("36 ") + Lang(144);
        const QString nothing = QStringLiteral("64 ") + Lang(146);

        server.serve("200 OK", "2.9");
        run.boxes.answer(platform::IDYES);
        QCOMPARE(checkShown(run), QStringList { news });
        QVERIFY(server.request.startsWith("GET /updates/tolvane-updates.txt HTTP/1.1\r\n"));
        QCOMPARE(shell.calls.size(), 1); // Yes opens the update page
        QVERIFY(shell.calls[0].file.contains(QStringLiteral("127.0.0.1")));

        server.serve("200 OK", "2.10");
        QCOMPARE(checkShown(run), QStringList { nothing });
        server.serve("200 OK", "2.10\r\n");
        run.boxes.answer(platform::IDNO);
        QCOMPARE(checkShown(run), QStringList { news }); // No: nothing opens
        QCOMPARE(shell.calls.size(), 1);
        server.serve("404 Not Found", "9.9");
        QCOMPARE(checkShown(run), QStringList { nothing });
        server.serve("301 Moved Permanently", "9.9", "Location: http://127.0.0.1:9/x\r\n");
        QCOMPARE(checkShown(run), QStringList { nothing });
        server.serve("200 OK", QByteArray(10 * 1000 * 1000, '9'));
        QCOMPARE(checkShown(run), QStringList { news });
        server.close(); // nobody listens: refused at once
        QCOMPARE(checkShown(run), QStringList { nothing });
    }

    void cancelCloseWithoutAWordWhileTheServerIsSilent()
    {
        VaultRun run;
        ManifestServer server;
        server.response.clear(); // takes the request, never answers
        UpdateWindow* update = UpdateWindow::Instance(nullptr);
        update->show();
        QCOMPARE(update->info->text(), Lang(145));
        QTimer::singleShot(300, update->cancelButton, &QPushButton::click);
        update->checkTick(); // waits, with events running, until the cancel
        QVERIFY(!UpdateWindow::Loaded());
        QVERIFY(run.boxes.shown.isEmpty());
        QVERIFY(server.request.startsWith("GET "));

        // The bar is a sign of life only: ten ticks to 100, then its timer stops.
        update = UpdateWindow::Instance(nullptr);
        for (int i = 0; i < 10; ++i)
            update->advanceBar();
        QCOMPARE(update->progressBar->value(), 100);
        QVERIFY(update->barTimer->isActive());
        update->advanceBar();
        QVERIFY(!update->barTimer->isActive());
        UpdateWindow::Unload();
    }

    void silentCheckSpeaksOnlyOfNews()
    {
        VaultRun run;
        ManifestServer server;
        for (const QByteArray& body : { QByteArray("2.10"), QByteArray("2.0") }) {
            server.serve("200 OK", body);
            StartSilentUpdateCheck();
            SilentUpdateCheck* check = SilentUpdateCheck::Loaded();
            QVERIFY(check && !check->isVisible());
            QCOMPARE(check->checkTimer->interval(), 600);
            check->checkTick();
            QVERIFY(!SilentUpdateCheck::Loaded());
        }
        QVERIFY(run.boxes.shown.isEmpty());
        server.serve("200 OK", "3.0");
        StartSilentUpdateCheck();
        SilentUpdateCheck::Loaded()->checkTick();
        QCOMPARE(run.boxes.shown.size(), 1);
        QCOMPARE(run.boxes.shown[0].text, Lang(144));

        // Only a typed login starts it: the vault window's Timer3 loads it at its first tick.
        VaultWindow* main = run.start();
        QVERIFY(!main->updateCheckTimer->isActive());
        main->startSilentUpdateCheck();
        QVERIFY(SilentUpdateCheck::Loaded());
        QVERIFY(!main->updateCheckTimer->isActive());
        SilentUpdateCheck::Unload();
    }

    void aboutBoxShowsVersionAndUnderlinesTheLastLink()
    {
        VaultRun run;
        AboutDialog* about = AboutDialog::Instance(nullptr);
        about->show();
        QCOMPARE(about->windowTitle(), Lang(118));
        QCOMPARE(about->version->text(), QStringLiteral("2.10"));
        QCOMPARE(about->productName->text(), QStringLiteral("Tolvane"));
        QCOMPARE(about->computerName->text(), QSysInfo::machineHostName());
        QCOMPARE(about->supportLink->text(), Lang(135));
        about->underlineLink(about->supportLink);
        about->underlineLink(about->contactLink);
        QVERIFY(about->contactLink->font().underline());
        for (ClickablePicture* other : { about->homePageLink, about->supportLink, about->forumLink })
            QVERIFY(!other->font().underline());
        QCOMPARE(about->contactLink->cursor().shape(), Qt::PointingHandCursor);
        ShellScript shell;
        QTest::mouseClick(about->forumLink, Qt::LeftButton);
        QCOMPARE(shell.calls.size(), 1);
        QTest::mouseClick(about->version, Qt::LeftButton); // the version closes the window
        QVERIFY(!AboutDialog::Loaded());
    }
};

QTEST_MAIN(tst_update)
#include "tst_update.moc"
