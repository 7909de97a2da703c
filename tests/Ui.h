// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The tests' eyes and hands: a control is found by what a screen reader calls it (a button's
// text, a box's caption, a list's heading, a picture's action), and used with the mouse and the
// keyboard as a user uses it.
#include "widgets/Accessibility.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;
namespace ui {

// "&User name:" as a screen reader says it, "User name"; "New entry..." as "New entry".
inline QString spoken(const QString& caption)
{
    QString said = SpokenCaption(caption);
    while (said.endsWith(QLatin1Char('.')))
        said.chop(1);
    return said;
}

inline QString nameOf(QWidget* w)
{
    QAccessibleInterface* a = QAccessible::queryAccessibleInterface(w);
    return a ? spoken(a->text(QAccessible::Name)) : QString();
}

// The control of the window that is read as `name`, among those on screen; null if none is.
// A caption is read as the name of its box too: the box is meant, not the caption, unless
// nothing but a label bears the name.
template <typename T = QWidget> T* find(QWidget* window, const QString& name)
{
    // A drop-down list is named by the caption it is the buddy of (its own name is its row).
    QList<QWidget*> captioned;
    for (QLabel* caption : window->findChildren<QLabel*>()) {
        if (caption->buddy() && spoken(caption->text()) == spoken(name))
            captioned << caption->buddy();
    }
    T* label = nullptr;
    for (T* w : window->findChildren<T*>()) {
        if (!w->isVisibleTo(window) || (nameOf(w) != spoken(name) && !captioned.contains(w)))
            continue;
        const bool caption = w->metaObject() == &QLabel::staticMetaObject; // a picture that acts is no caption
        if (!caption && !w->focusProxy())
            return w;
        if (!label && caption)
            label = w;
    }
    return label;
}

// The same, failing the test when there is no such control.
template <typename T = QWidget> T* get(QWidget* window, const QString& name)
{
    T* w = find<T>(window, name);
    if (!w)
        qWarning().noquote() << "no control named" << spoken(name) << "in" << window->windowTitle();
    return w;
}

// A click near the left end, where a tick box has its box.
template <typename T = QWidget> void click(QWidget* window, const QString& name)
{
    if (QWidget* w = get<T>(window, name))
        QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(qMin(8, w->width() / 2), w->height() / 2));
}

// The text a box shows.
inline QString text(QWidget* window, const QString& box)
{
    QWidget* w = get(window, box);
    if (auto* line = qobject_cast<QLineEdit*>(w))
        return line->text();
    if (auto* plain = qobject_cast<QPlainTextEdit*>(w))
        return plain->toPlainText();
    return w ? nameOf(w) : QString();
}

// A click into the box (the box becomes the one clicked last), then the keys of the text;
// characters the test's keys can't type are put in as a paste would. `over` types over the
// whole text (Ctrl+A first).
inline void type(QWidget* window, const QString& box, const QString& typed, bool over = false)
{
    QWidget* w = get(window, box);
    if (!w)
        return;
    if (!w->window()->isActiveWindow()) { // a click into a box in the background brings its window up
        w->window()->activateWindow();
        QApplication::setActiveWindow(w->window());
    }
    auto* plain = qobject_cast<QPlainTextEdit*>(w);
    QTest::mouseClick(plain ? plain->viewport() : w, Qt::LeftButton, {}, QPoint(4, 4));
    if (over) {
        QTest::keyClick(w, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(w, Qt::Key_Backspace);
    }
    bool ascii = true;
    for (QChar c : typed)
        ascii = ascii && c.unicode() >= 32 && c.unicode() < 127;
    if (ascii)
        QTest::keyClicks(w, typed);
    else if (plain)
        plain->insertPlainText(typed);
    else
        static_cast<QLineEdit*>(w)->insert(typed);
}

inline QStringList rows(QWidget* window, const QString& list)
{
    QStringList out;
    if (auto* l = get<QListWidget>(window, list)) {
        for (int i = 0; i < l->count(); ++i)
            out << l->item(i)->text();
    }
    return out;
}

inline void clickRow(QWidget* window, const QString& list, int row)
{
    if (auto* l = get<QListWidget>(window, list))
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, l->visualItemRect(l->item(row)).center());
}

// What a window shows beside a caption ("Current user:" Ann): the nearest text to its right on
// the caption's line.
inline QString beside(QWidget* window, const QString& caption)
{
    QLabel* label = find<QLabel>(window, caption);
    if (!label)
        return QString();
    const QRect at(label->mapTo(window, QPoint()), label->size());
    QLabel* nearest = nullptr;
    for (QLabel* w : window->findChildren<QLabel*>()) {
        const QRect r(w->mapTo(window, QPoint()), w->size());
        if (w->isVisibleTo(window) && r.left() >= at.right() && qAbs(r.center().y() - at.center().y()) < at.height()
            && (!nearest || r.left() < nearest->mapTo(window, QPoint()).x()))
            nearest = w;
    }
    return nearest ? nearest->text() : QString();
}

// A click on the tab of that name.
inline void tab(QWidget* window, const QString& name)
{
    for (QTabBar* bar : window->findChildren<QTabBar*>()) {
        for (int i = 0; i < bar->count(); ++i) {
            if (spoken(bar->tabText(i)) == spoken(name))
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(i).center());
        }
    }
}

// The list box dropped down and the first row that begins with `row` clicked.
inline void choose(QWidget* window, const QString& box, const QString& row)
{
    auto* combo = get<QComboBox>(window, box);
    if (!combo)
        return;
    combo->showPopup();
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemText(i).startsWith(row, Qt::CaseInsensitive)) {
            QAbstractItemView* view = combo->view();
            QTest::mouseClick(
                view->viewport(), Qt::LeftButton, {}, view->visualRect(view->model()->index(i, 0)).center());
            break;
        }
    }
    combo->hidePopup();
}

// The menu entry reached by these texts ("File", "New entry..."), triggered as a click on it
// does; false when there is none. A menu of the bar, or the window's pop-up menu.
inline bool menu(QWidget* window, const QStringList& path)
{
    QList<QAction*> entries
        = window->findChild<QMenuBar*>() ? window->findChild<QMenuBar*>()->actions() : QList<QAction*>();
    for (QMenu* popup : window->findChildren<QMenu*>(Qt::FindDirectChildrenOnly))
        entries << popup->menuAction();
    for (int level = 0; level < path.size(); ++level) {
        QAction* found = nullptr;
        for (QAction* a : std::as_const(entries)) {
            if (!a->isSeparator() && spoken(a->text()) == spoken(path[level]))
                found = a;
        }
        if (!found)
            return false;
        if (level + 1 == path.size()) {
            found->trigger();
            return true;
        }
        entries = found->menu() ? found->menu()->actions() : QList<QAction*>();
    }
    return false;
}

// The windows the user sees now, deleted ones gone first.
inline QList<QWidget*> windowsOnScreen()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QList<QWidget*> shown;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->windowType() != Qt::ToolTip)
            shown << w;
    }
    return shown;
}

// The window on screen with this title; null if none is.
inline QWidget* window(const QString& title)
{
    for (QWidget* w : windowsOnScreen()) {
        if (w->windowTitle() == title)
            return w;
    }
    return nullptr;
}

// Runs `act` on the next modal window once it is up and active (the command that opens it
// blocks until it closes).
inline void onNextModal(std::function<void(QWidget*)> act)
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
        if (QTest::currentTestFailed()) // a failed check left the window up: close it, or the test hangs
            modal->close();
    });
    poll->start();
}

inline void activate(QWidget* window)
{
    window->show();
    window->activateWindow();
    QApplication::setActiveWindow(window);
    QVERIFY(QTest::qWaitForWindowActive(window));
}

} // namespace ui
