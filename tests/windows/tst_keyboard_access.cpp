// SPDX-License-Identifier: GPL-3.0-or-later
// Every window as a keyboard and screen-reader user meets it: Tab walks round it in reading order,
// each stop named; pictures take keys; menus' access keys differ in every language and work.
#include "ProgramRun.h"
#include "core/PasswordDigest.h"
#include "core/RegistryLayer.h"

#include <QRadioButton>

namespace {

const auto radio = [](QObject* w) { return qobject_cast<QRadioButton*>(w) != nullptr; };
const auto describe = [](QWidget* w) { return ui::nameOf(w) + u' ' + QLatin1String(w->metaObject()->className()); };

// b is read after the stops seen, the last of them a: on a's line and further right, lower down,
// or at the head of a column right of the column a ends.
const auto readAfter = [](const QList<QWidget*>& seen, QWidget* next) {
    const auto at = [next](QWidget* w) { return QRect(w->mapTo(next->window(), QPoint()), w->size()); };
    const QRect a = at(seen.last()), b = at(next);
    QRect c = a;
    for (auto r = seen.crbegin(); r != seen.crend() && at(*r).right() >= c.left() && at(*r).left() <= c.right(); ++r)
        c |= at(*r);
    return ((a.top() < b.bottom() && b.top() < a.bottom()) ? b.left() > a.left() : b.top() > a.top())
        || (b.left() > c.right() && b.top() >= c.top() && b.top() < c.bottom());
};

// Tab from the first stop round to it again, in reading order, each stop named and unlike the others;
// every control a press sets going reached (but the toolbar's, radio buttons after the first of a
// group, and the about box's version, which closes it as OK does); no locked box written by a tool.
QStringList audit(QWidget* window)
{
    window->setFocus();
    QTest::keyClick(window, Qt::Key_Tab); // to the first stop
    QStringList faults;
    QList<QWidget*> stops;
    for (QWidget* now = window->focusWidget(); now != stops.value(0); now = window->focusWidget()) {
        if (stops.contains(now))
            return faults << u"Tab is caught at "_s + describe(now);
        if (ui::nameOf(now).isEmpty() || std::ranges::count(stops, describe(now), describe))
            faults << u"no name of its own: "_s + describe(now);
        if (!stops.isEmpty() && !readAfter(stops, now))
            faults << u"out of order: "_s + describe(now) + u" after "_s + describe(stops.last());
        stops << now;
        QTest::keyClick(now, Qt::Key_Tab);
    }
    for (QWidget* w : window->findChildren<QWidget*>()) {
        QAccessibleActionInterface* actions = QAccessible::queryAccessibleInterface(w)->actionInterface();
        if (actions && actions->actionNames().contains(QAccessibleActionInterface::pressAction())
            && w->isVisibleTo(window) && w->isEnabled() && !stops.contains(w) && w->focusPolicy() != Qt::ClickFocus
            && ui::nameOf(w) != ui::beside(window, Lang(Text::VersionLabel))
            && !(radio(w) && std::ranges::any_of(stops, radio)))
            faults << u"out of the keyboard's reach: "_s + describe(w);
        if (auto* box = qobject_cast<QLineEdit*>(w); box && box->isReadOnly()) {
            QAccessible::queryAccessibleInterface(box)->setText(QAccessible::Value, u"40"_s);
            if (box->text() == u"40"_s)
                faults << u"locked, but written by a tool: "_s + describe(w);
        }
    }
    if (window->isModal())
        window->close();
    return faults;
}

} // namespace

class tst_keyboard_access : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWindowWalksInOrderAndPicturesTakeKeys()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({});
        ui::type(vault, Lang(Text::PasswordLabel), {});
        ui::click(vault,
            ActionOnBox(
                Lang(Text::CopyItem), Lang(Text::PasswordLabel))); // the copy picture leaves the focus in the box
        QCOMPARE(QApplication::focusWidget(), ui::get(vault, Lang(Text::PasswordLabel)));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); // past it to the generator's picture
        QStringList faults;
        ui::onNextModal([&faults](QWidget* w) { faults << w->windowTitle() << audit(w); });
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(faults, QStringList { Lang(Text::GeneratorTitle) });
        faults = audit(vault);
        const std::pair<Text, Text> entries[]
            = { { Text::FileMenu, Text::NewEntryItem }, { Text::FileMenu, Text::ImportItem },
                  { Text::FileMenu, Text::ExportItem }, { Text::ReportsMenu, Text::PasswordListItem },
                  { Text::HelpMenu, Text::CheckForUpdatesItem }, { Text::HelpMenu, Text::AboutItem } };
        for (const auto& [menu, entry] : entries) {
            ui::onNextModal([&faults](QWidget* w) { faults << audit(w); });
            ui::menu(vault, { Lang(menu), Lang(entry) });
        }
        ui::menu(vault, { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
        QWidget* settings = ui::window(u"Ustawienia..."_s);
        for (Text page : { Text::GeneralPage, Text::DrivesPage, Text::ProfilesPage }) {
            ui::tab(settings, Lang(page));
            faults << audit(settings);
        }
        ui::onNextModal([&faults](QWidget* w) { faults << audit(w); });
        ui::click(settings, Lang(Text::AddProfile));
        run.close();
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"pw"_s));
        run.start();
        faults << audit(run.login());
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void accessKeysDifferInEachMenuOfEveryLanguageAndWork()
    {
        for (const QString& language : { u"English"_s, u"Polish"_s, u"Deutsch"_s }) {
            ProgramRun run;
            SaveProgramSetting(u"curLang"_s, language);
            LoadLanguage();
            VaultWindow* vault = run.startActive({});
            for (QWidget* menu : vault->findChildren<QWidget*>()) { // the bar and its menus
                QList<QKeySequence> keys;
                for (QAction* a : menu->actions()) {
                    keys << QKeySequence::mnemonic(a->text());
                    QVERIFY2(keys.last().isEmpty() || keys.count(keys.last()) == 1, qPrintable(language + a->text()));
                }
            }
            QTest::keySequence(vault, QKeySequence::mnemonic(Lang(Text::FileMenu))); // Alt and File's key, then New's
            ui::onNextModal([](QWidget* d) {
                ui::type(d, Lang(Text::TitleLabel), u"keys"_s); // Save's key takes the focus, so the title goes with it
                QTest::keySequence(QApplication::focusWidget(), QKeySequence::mnemonic(Lang(Text::Save)));
                QTRY_VERIFY(!d->isVisible()); // the press shows before the click
            });
            QTest::keyClick(
                QApplication::activePopupWidget(), QKeySequence::mnemonic(Lang(Text::NewEntryItem))[0].key());
            QCOMPARE(ui::rows(vault, Lang(Text::PasswordList)), QStringList { u"keys"_s });
        }
    }
};

QTEST_MAIN(tst_keyboard_access)
#include "tst_keyboard_access.moc"
