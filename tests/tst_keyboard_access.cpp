// Every window as a keyboard and screen-reader user meets it: the Tab key walks round each
// window in the order its controls are seen (top to bottom, left to right), without being
// caught in a box, and every control it stops at has a name and a role an assistive tool reads.
#include "VaultRun.h"
#include "platform/Clipboard.h"
#include "services/ClickablePicture.h"
#include "services/TextBox.h"
#include "settings/SettingsWindow.h"
#include "startup/PasswordChangeDialog.h"
#include "startup/PasswordDigest.h"
#include "startup/PasswordReminderDialog.h"
#include "tools/ExportDialog.h"
#include "tools/PasswordGenerator.h"

#include <QAccessible>
#include <QClipboard>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

#include <algorithm>

namespace {

struct Stop
{
    QWidget* widget;
    QString name;
    QAccessible::Role role;
    QRect rect; // in the window's coordinates
};

QString Describe(const Stop& s)
{
    return QStringLiteral("%1 (%2) \"%3\" at %4,%5")
        .arg(s.widget->objectName(), QString::fromLatin1(s.widget->metaObject()->className()), s.name)
        .arg(s.rect.x())
        .arg(s.rect.y());
}

// The widget that holds the focus in the window: its own, as the window may not be active.
QWidget* Focused(QWidget* window)
{
    QWidget* w = window->focusWidget();
    return w ? w : QApplication::focusWidget();
}

// The stops of the Tab key from the window's first one round to it again. A stop seen twice
// before the first comes back is a trap and ends the walk with the failure recorded.
QList<Stop> TabWalk(QWidget* window, QString& failure)
{
    QWidget* first = nullptr;
    for (QWidget* w = window->nextInFocusChain(); w && w != window; w = w->nextInFocusChain()) {
        if ((w->focusPolicy() & Qt::TabFocus) && w->isVisibleTo(window) && w->isEnabled() && !w->focusProxy()) {
            first = w;
            break;
        }
    }
    if (!first)
        return {};
    first->setFocus(Qt::TabFocusReason);
    QList<Stop> stops;
    for (int i = 0; i < 100; ++i) {
        QWidget* now = Focused(window);
        if (!stops.isEmpty() && now == stops.first().widget)
            return stops;
        for (const Stop& s : stops) {
            if (s.widget == now) {
                failure = QStringLiteral("Tab goes round without the first stop: ") + Describe(s);
                return stops;
            }
        }
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(now);
        stops.append({ now, seen ? seen->text(QAccessible::Name) : QString(), seen ? seen->role() : QAccessible::NoRole,
            QRect(now->mapTo(window, QPoint(0, 0)), now->size()) });
        QTest::keyClick(now, Qt::Key_Tab);
    }
    failure = QStringLiteral("Tab never comes back to the first stop");
    return stops;
}

// The next stop b is seen after the stops before it (the last of them a): on a's line (the two
// overlap from top to bottom) and further right, or lower down, or at the head of a column to
// the right of the column a ends (the run of stops just before b that lie above one another).
bool ReadAfter(const QList<QRect>& before, const QRect& b)
{
    const QRect& a = before.last();
    const bool sameLine = a.top() < b.bottom() && b.top() < a.bottom();
    if (sameLine ? b.left() > a.left() : b.top() > a.top())
        return true;
    QRect column = a;
    for (qsizetype i = before.size() - 2; i >= 0; --i) {
        const QRect& r = before[i];
        if (r.right() < column.left() || r.left() > column.right())
            break;
        column |= r;
    }
    return b.left() > column.right() && b.top() >= column.top() && b.top() < column.bottom();
}

// A control a click or an assistive tool's press sets going.
bool Pressable(QWidget* w)
{
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(w);
    return seen && seen->actionInterface()
        && seen->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction());
}

// What is wrong with the window for a keyboard and a screen reader, as lines; empty when nothing.
// The toolbar's skinned buttons, the radio buttons after the first of a group (the arrow keys
// reach them) and the controls named in mouseOnly are allowed to stay out of the Tab order.
QStringList Audit(QWidget* window, const QStringList& mouseOnly)
{
    QString failure;
    const QList<Stop> stops = TabWalk(window, failure);
    QStringList faults;
    if (!failure.isEmpty())
        faults << failure;
    QList<QWidget*> reached;
    QList<QRect> seen;
    for (int i = 0; i < stops.size(); ++i) {
        const Stop& s = stops[i];
        reached << s.widget;
        if (qEnvironmentVariableIsSet("TOLVANE_PRINT_TAB_ORDER"))
            qInfo().noquote() << window->objectName() << i << Describe(s);
        if (s.name.trimmed().isEmpty())
            faults << QStringLiteral("no name: ") + Describe(s);
        if (s.role == QAccessible::NoRole || s.role == QAccessible::Client)
            faults << QStringLiteral("no role: ") + Describe(s);
        // A combo box is named by its value here; its caption comes as the label of a relation.
        if (s.role == QAccessible::ComboBox && s.widget->accessibleName().isEmpty()
            && QAccessible::queryAccessibleInterface(s.widget)->relations(QAccessible::Label).isEmpty())
            faults << QStringLiteral("no caption: ") + Describe(s);
        for (int j = 0; j < i; ++j) {
            if (stops[j].name == s.name && stops[j].role == s.role)
                faults << QStringLiteral("named as another: ") + Describe(s);
        }
        if (i > 0 && !ReadAfter(seen, s.rect))
            faults << QStringLiteral("out of order: ") + Describe(s) + QStringLiteral(" after ")
                    + Describe(stops[i - 1]);
        seen << s.rect;
    }
    for (QWidget* w : window->findChildren<QWidget*>()) {
        if (!w->isVisibleTo(window) || !w->isEnabled() || reached.contains(w) || !Pressable(w)
            || qobject_cast<SkinnedButton*>(w) || mouseOnly.contains(w->objectName()))
            continue;
        if (auto* radio = qobject_cast<QRadioButton*>(w); radio && radio->autoExclusive()) {
            const auto group = w->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
            if (std::any_of(group.begin(), group.end(), [&reached](QWidget* r) { return reached.contains(r); }))
                continue;
        }
        faults << QStringLiteral("out of the keyboard's reach: ") + w->objectName() + QLatin1Char(' ')
                + QString::fromLatin1(w->metaObject()->className());
    }
    return faults;
}

} // namespace

class tst_keyboard_access : public QObject
{
    Q_OBJECT

    QStringList faults;

    void audit(QWidget* window, const QStringList& mouseOnly = {})
    {
        for (const QString& f : Audit(window, mouseOnly))
            faults << window->objectName() + QStringLiteral(": ") + f;
    }

    // Runs the command and audits the modal window it opens, which is then closed.
    void auditModal(const std::function<void()>& command, const QStringList& mouseOnly = {})
    {
        bool seen = false;
        VaultRun::onNextModal([this, &seen, &mouseOnly](QWidget* w) {
            seen = true;
            audit(w, mouseOnly);
            w->close();
        });
        command();
        QVERIFY(seen);
    }

private Q_SLOTS:
    void everyWindowWalksInOrderAndIsNamed()
    {
        VaultRun run;
        Entry mail;
        mail.title = "Mail";
        VaultWindow* main = run.startActive({ mail });
        QVERIFY(main);
        audit(main);
        // A search brings the button back to the whole list above it.
        main->searchBox->SetText(QStringLiteral("mail"));
        main->search();
        QVERIFY(main->showAllButton->isVisible());
        main->setObjectName(QStringLiteral("VaultWindow searching"));
        audit(main);
        main->setObjectName(QStringLiteral("VaultWindow"));
        auditModal([main] { main->newEntryAction->trigger(); });
        auditModal([main] { main->generatorAction->trigger(); });
        auditModal([main] { main->reportAction->trigger(); });
        auditModal([main] { main->exportAction->trigger(); });
        auditModal([main] { main->importAction->trigger(); });
        // The about box's version closes the box when clicked, as OK does.
        auditModal([main] { main->aboutAction->trigger(); }, { QStringLiteral("version") });
        auditModal([main] { main->trayUpdateAction->trigger(); });

        // The settings window, each of its pages, and the profile dialogs of the last one.
        main->settingsAction->trigger();
        SettingsWindow* settings = SettingsWindow::Loaded();
        QVERIFY(settings);
        for (int page = 0; page < settings->pageTabs->count(); ++page) {
            settings->pageTabs->setCurrentIndex(page);
            settings->setObjectName(QStringLiteral("SettingsWindow page %1").arg(page + 1));
            audit(settings);
        }
        auditModal([settings] { settings->addButton->click(); });
        settings->changePasswordButton->click();
        QVERIFY(PasswordChangeDialog::Loaded());
        audit(PasswordChangeDialog::Loaded());
        PasswordChangeDialog::Unload();
        run.setIni(
            QStringLiteral("Administrator/settings.txt"), Keys::settings, Keys::question, QStringLiteral("Pet?"));
        settings->remindButton->click();
        QVERIFY(PasswordReminderDialog::Loaded());
        audit(PasswordReminderDialog::Loaded());
        // The answer box is read with the question it answers.
        QCOMPARE(QAccessible::queryAccessibleInterface(PasswordReminderDialog::Loaded()->answerBox)
                     ->text(QAccessible::Description),
            QStringLiteral("Pet?"));
        PasswordReminderDialog::Unload();
        settings->cancelOptions();

        // The login that asks for a password.
        run.close();
        run.setIni(
            QStringLiteral("Administrator/settings.txt"), Keys::settings, Keys::password, MD5Hex(QStringLiteral("pw")));
        run.start();
        QVERIFY(run.login());
        audit(run.login());
        if (!faults.isEmpty())
            QFAIL(qPrintable(faults.join(QLatin1Char('\n'))));
    }

    // Nothing hidden is read, and what the user can't type in, an assistive tool can't write.
    void hiddenControlsAreNotReadAndLockedBoxesRefuseAssistiveWrites()
    {
        VaultRun run;
        VaultWindow* main = run.startActive({});
        QVERIFY(main);
        // The nodes of a window's accessible tree that stand for controls out of sight.
        std::function<void(QAccessibleInterface*, QStringList&)> hidden
            = [&hidden](QAccessibleInterface* node, QStringList& found) {
                  for (int i = 0; i < node->childCount(); ++i) {
                      QAccessibleInterface* child = node->child(i);
                      if (child->state().invisible)
                          found << child->object()->objectName() + QStringLiteral(" \"")
                                  + child->text(QAccessible::Name) + child->text(QAccessible::Value) + QLatin1Char('"');
                      else
                          hidden(child, found);
                  }
              };
        // Each modal window is looked at, then closed, and judged after.
        QStringList found;
        QString length;
        QString generated;
        VaultRun::onNextModal([&](QWidget* w) {
            auto* generator = qobject_cast<PasswordGenerator*>(w);
            hidden(QAccessible::queryAccessibleInterface(w), found);
            // The length box: neither a new text nor an edit of it gets in.
            QAccessibleInterface* box = QAccessible::queryAccessibleInterface(generator->lengthBox->Editor());
            box->setText(QAccessible::Value, QStringLiteral("40"));
            if (QAccessibleEditableTextInterface* edit = box->editableTextInterface())
                edit->replaceText(0, 1, QStringLiteral("40"));
            length = generator->lengthBox->Text();
            QTest::mouseClick(generator->generateButton, Qt::LeftButton);
            generated = generator->resultBox->Text();
            w->close();
        });
        main->generatorAction->trigger();
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QStringLiteral(", "))));
        QCOMPARE(length, QStringLiteral("5"));
        QCOMPARE(generated.size(), 5);
        QString target;
        VaultRun::onNextModal([&](QWidget* w) {
            TextBox* path = qobject_cast<ExportDialog*>(w)->targetBox;
            QAccessible::queryAccessibleInterface(path->Editor())
                ->setText(QAccessible::Value, QStringLiteral("Z:\\etc\\passwd"));
            target = path->Text();
            w->close();
        });
        main->exportAction->trigger();
        QCOMPARE(target, QStringLiteral("C:\\tolvane_data.tvd"));

        // The profile dialogs keep the stored values to themselves.
        main->settingsAction->trigger();
        SettingsWindow* settings = SettingsWindow::Loaded();
        settings->changePasswordButton->click();
        settings->remindButton->click();
        for (QWidget* dialog : { static_cast<QWidget*>(PasswordChangeDialog::Loaded()),
                 static_cast<QWidget*>(PasswordReminderDialog::Loaded()) })
            hidden(QAccessible::queryAccessibleInterface(dialog), found);
        PasswordChangeDialog::Unload();
        PasswordReminderDialog::Unload();
        settings->cancelOptions();
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QStringLiteral(", "))));
    }

    // The pictures beside the boxes: Tab reaches them and Space or Enter clicks them, while a
    // mouse click leaves the focus in the box, as the runtime's pictures never take it.
    void picturesAreTabStopsThatKeysPressAndTheMouseLeavesAlone()
    {
        VaultRun run;
        Entry mail;
        mail.title = "Mail";
        mail.password = "secret-pass";
        VaultWindow* main = run.startActive({ mail });
        QVERIFY(main);
        VaultRun::clickRow(main->list, 0);
        main->keepBoxesInStep();
        QCOMPARE(main->passwordBox->Text(), QStringLiteral("secret-pass"));

        VaultRun::clickInto(main->passwordBox);
        QApplication::clipboard()->setText(QStringLiteral("before"));
        QTest::mouseClick(main->copyPasswordButton, Qt::LeftButton);
        QCOMPARE(platform::ClipboardText(), QStringLiteral("secret-pass"));
        QCOMPARE(QApplication::focusWidget(), main->passwordBox->Editor());

        QApplication::clipboard()->setText(QStringLiteral("before"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), main->copyPasswordButton);
        QTest::keyClick(main->copyPasswordButton, Qt::Key_Space);
        QCOMPARE(platform::ClipboardText(), QStringLiteral("secret-pass"));

        QTest::keyClick(main->copyPasswordButton, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), main->generatorButton);
        bool generator = false;
        VaultRun::onNextModal([&generator](QWidget* w) {
            generator = qobject_cast<PasswordGenerator*>(w);
            w->close();
        });
        QTest::keyClick(main->generatorButton, Qt::Key_Return);
        QVERIFY(generator);
        // A modifier makes it no press.
        QApplication::clipboard()->setText(QStringLiteral("before"));
        QTest::keyClick(main->copyPasswordButton, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(platform::ClipboardText(), QStringLiteral("before"));
    }
};

QTEST_MAIN(tst_keyboard_access)
#include "tst_keyboard_access.moc"
