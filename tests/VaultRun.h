#pragma once
// A run of the program inside a test: a fresh world, the English table, message boxes and
// beeps answered by script, and the windows of a run found and ended as the program does.
#include "TestSupport.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "services/LanguageTable.h"
#include "services/ListBox.h"
#include "services/SkinnedButton.h"
#include "services/TextBox.h"
#include "services/TrayHost.h"
#include "startup/LoginDialog.h"
#include "storage/DataRoot.h"
#include "storage/ProfileFiles.h"
#include "storage/VaultFile.h"
#include "vault/EntryTable.h"
#include "vault/VaultWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include <functional>

class VaultRun
{
public:
    VaultRun()
    {
        LoadLanguage(); // a fresh registry: the one unnumbered message, then English
        boxes.shown.clear();
        platform::SetBeepHook([this] { ++beeps; });
        Reset();
    }
    ~VaultRun()
    {
        Reset();
        platform::SetBeepHook({});
        platform::SetFileDialogBackend({});
    }

    // Ends whatever a run left in memory.
    static void Reset()
    {
        VaultWindow::Unload();
        TrayHost::Unload();
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (!w->isHidden())
                w->hide();
        }
        entryTable.clear();
        currentEntry = Entry();
        vaultDirty = false;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QString data(const QString& relative) const
    {
        return world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/") + relative);
    }
    QString ini(const QString& file, const QString& section, const QString& key) const
    {
        return GetIni(section, key, platform::ToWindows(data(file)));
    }
    void setIni(const QString& file, const QString& section, const QString& key, const QString& value) const
    {
        WriteIni(section, key, value, platform::ToWindows(data(file)));
    }

    // The entries on disk, read without the load's write-back.
    QList<Entry> vaultOnDisk(const QString& profile = QStringLiteral("Administrator")) const
    {
        QFile f(data(profile + QStringLiteral("/list.dat")));
        if (!f.open(QIODevice::ReadOnly))
            return {};
        return ParseInnerText(LayerOff(f.readAll()));
    }

    // Writes the vault of Administrator before the run starts.
    void writeVault(QList<Entry> entries) const
    {
        QDir().mkpath(data(QStringLiteral("Administrator")));
        QCOMPARE(
            SaveVault(platform::ToWindows(data(QStringLiteral("Administrator/list.dat"))), entries), VaultSave::Saved);
    }

    LoginDialog* login() const
    {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* l = qobject_cast<LoginDialog*>(w);
            if (l && l->isVisible())
                return l;
        }
        return nullptr;
    }

    // Splash handed over: the login's load runs, and maybe the vault window comes up.
    VaultWindow* start()
    {
        ShowLogin();
        return VaultWindow::Loaded();
    }
    // The vault window over these entries, active; null when it did not come up.
    VaultWindow* startActive(const QList<Entry>& entries)
    {
        writeVault(entries);
        VaultWindow* main = start();
        if (main)
            activate(main);
        return main;
    }

    // The tree as the first start leaves it, plus the profiles named, each listed in users.txt
    // after Administrator and with its marker. No window is left open.
    void provision(const QStringList& more = {})
    {
        start();
        close();
        QByteArray users = "Administrator\r\n";
        for (const QString& name : more) {
            users += name.toLatin1() + "\r\n";
            world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/") + name + QStringLiteral("/dummy.dat"), "x");
        }
        world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt"), users);
        boxes.shown.clear();
    }

    // Ends the run as the File menu does, up to the end of the process.
    void close()
    {
        VaultWindow::Unload();
        TrayHost::Unload();
        Reset();
    }

    // Runs `act` on the next modal window, once it is up and active.
    static void onNextModal(std::function<void(QWidget*)> act)
    {
        auto* poll = new QTimer;
        poll->setInterval(5);
        QObject::connect(poll, &QTimer::timeout, [poll, act] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || !modal->isVisible())
                return;
            poll->stop();
            poll->deleteLater();
            modal->activateWindow();
            QApplication::setActiveWindow(modal);
            act(modal);
        });
        poll->start();
    }

    // A click into a box: the focus moves there first, as a mouse press does.
    static void clickInto(TextBox* box)
    {
        if (!box->window()->isActiveWindow())
            activate(box->window());
        QWidget* target = box->LineEditor() ? static_cast<QWidget*>(box->LineEditor()) : box->PlainEditor()->viewport();
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(4, 4));
    }
    static void type(TextBox* box, const QString& text)
    {
        clickInto(box);
        bool keys = true; // the test's key events know plain ASCII only
        for (QChar c : text)
            keys = keys && c.unicode() >= 32 && c.unicode() < 127;
        if (keys)
            QTest::keyClicks(box->Editor(), text);
        else if (box->LineEditor())
            box->LineEditor()->insert(text);
        else
            box->PlainEditor()->insertPlainText(text);
    }
    static void activate(QWidget* window)
    {
        window->show();
        window->activateWindow();
        QApplication::setActiveWindow(window);
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    // The windows the user sees now, with deleted ones gone first.
    static QList<QWidget*> windowsOnScreen()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QList<QWidget*> shown;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->isVisible() && w->isWindow() && !(w->windowType() == Qt::ToolTip))
                shown << w;
        }
        return shown;
    }
    static QStringList rows(const ListBox* list)
    {
        QStringList out;
        for (int i = 0; i < list->ListCount(); ++i)
            out << list->List(i);
        return out;
    }
    static void clickRow(ListBox* list, int row)
    {
        const QRect r = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, r.center());
    }

    TestWorld world;
    MessageBoxScript boxes;
    int beeps = 0;
};
