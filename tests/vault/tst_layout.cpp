// The vault window's layout: the resize rules at and around the minimum in both list modes, a
// minimised window, the toolbar's hover taking the focus from a box, and the menus as designed.
#include "VaultRun.h"
#include "platform/Twips.h"
#include "services/Accessibility.h"
#include "services/ClickablePicture.h"

#include <QAccessible>
#include <QClipboard>
#include <QFrame>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

namespace {

Entry entry(const char* title, const char* name)
{
    Entry e;
    e.title = title;
    e.userName = name;
    return e;
}

// Asks the window for an outer size in twips, as a user's drag would.
void dragTo(VaultWindow* main, int W, int H)
{
    main->SetOuterSize(W, H);
    QCoreApplication::processEvents();
}

// Every rule of the layout, for the outer size W by H.
void checkLayout(const VaultWindow* main, int W, int H)
{
    QCOMPARE(main->OuterWidth(), W);
    QCOMPARE(main->OuterHeight(), H);
    const bool results = !main->showAllButton->isHidden();
    QCOMPARE(main->list->y(), Twips(results ? 1200 : 840));
    QCOMPARE(main->list->height(), Twips(results ? H - 2350 : H - 2100));
    for (const TextBox* b :
        { main->titleBox, main->userNameBox, main->passphraseBox, main->passwordBox, main->urlBox, main->documentBox })
        QCOMPARE(b->width(), Twips(W - 4750));
    QCOMPARE(main->noteBox->size(), QSize(Twips(W - 4050), Twips(H - 4700)));
    QCOMPARE(main->headingStrip->width(), Twips(W));
    QCOMPARE(main->headingLine->width(), Twips(W));
    QCOMPARE(main->saveButton->pos(), QPoint(Twips(W - 1400), Twips(H - 1600)));
    for (const ClickablePicture* image : { main->copyUserNameButton, main->copyPassphraseButton, main->copyUrlButton,
             main->copyPasswordButton, main->openDocumentButton })
        QCOMPARE(image->x(), Twips(W - 850));
    for (const ClickablePicture* image : { main->openAddressButton, main->generatorButton })
        QCOMPARE(image->x(), Twips(W - 450));
}

} // namespace

class tst_layout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resizeRulesAroundTheMinimumInBothModes()
    {
        VaultRun run;
        VaultWindow* main = run.startActive({ entry("Bank", "ann"), entry("Shop", "bob") });
        QVERIFY(main);
        for (const bool results : { false, true }) {
            if (results) {
                main->searchBox->SetText(QStringLiteral("ann"));
                QTest::mouseClick(main->searchButton, Qt::LeftButton);
                QVERIFY(!main->showAllButton->isHidden());
            }
            // Below the minimum in one direction or both it snaps back; at the minimum and
            // above it the window keeps its size. Each size is one more pixel than the last.
            const struct
            {
                int askedW, askedH, W, H;
            } sizes[] = {
                { 6000, 5040, 9270, 7140 },
                { 9255, 9000, 9270, 9000 },
                { 12000, 7125, 12000, 7140 },
                { 9270, 7140, 9270, 7140 },
                { 9285, 7155, 9285, 7155 },
                { 15000, 10500, 15000, 10500 },
            };
            for (const auto& s : sizes) {
                dragTo(main, s.askedW, s.askedH);
                QTRY_COMPARE(main->OuterWidth(), s.W);
                QTRY_COMPARE(main->OuterHeight(), s.H);
                checkLayout(main, s.W, s.H);
                if (QTest::currentTestFailed()) {
                    qWarning("asked %d by %d, results mode %d", s.askedW, s.askedH, results);
                    return;
                }
            }
        }
        // In results mode the list begins 360 twips lower and ends 110 twips lower.
        const int resultsBottom = main->list->geometry().bottom();
        QTest::mouseClick(main->showAllButton, Qt::LeftButton);
        QCOMPARE(main->list->y(), Twips(840));
        QCOMPARE(
            resultsBottom - main->list->geometry().bottom(), Twips(10500 - 2350 + 1200) - Twips(10500 - 2100 + 840));
        // The fixed items of the left column and the toolbar never move.
        QCOMPARE(main->listHeading->pos(), QPoint(Twips(120), Twips(405)));
        QCOMPARE(main->showAllButton->geometry(), QRect(Twips(120), Twips(760), Twips(2415), Twips(375)));
        QCOMPARE(main->settingsButton->geometry(), QRect(Twips(3620), 0, Twips(375), Twips(375)));
        QCOMPARE(main->headingStrip->geometry().top(), Twips(360));
    }

    void minimisedWindowStaysMinimised()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        QVERIFY(main);
        VaultRun::activate(main);
        dragTo(main, 10005, 8010);
        QTRY_COMPARE(main->OuterWidth(), 10005);
        main->showMinimized();
        QTRY_VERIFY(main->isMinimized());
        // A resize while minimised below the minimum: the new size is refused silently, the
        // window stays minimised, and the rules run with the size it has.
        dragTo(main, 6000, 5000);
        main->layOut();
        QVERIFY(main->isMinimized());
        QCOMPARE(main->OuterWidth(), 6000);
        QVERIFY(run.boxes.shown.isEmpty());
        QCOMPARE(main->noteBox->width(), Twips(main->OuterWidth() - 4050));
        // Back to normal, it snaps to the minimum.
        main->showNormal();
        QTRY_VERIFY(!main->isMinimized());
        main->layOut();
        QTRY_COMPARE(main->OuterWidth(), 9270);
        checkLayout(main, 9270, 7140);
    }

    void hoverOverTheToolbarCarriesTheBoxIntoTheWorkingCopy()
    {
        VaultRun run;
        VaultWindow* main = run.startActive({ entry("Bank", "ann") });
        QVERIFY(main);
        // The keyboard starts in the search box at the top, not on a toolbar button.
        QCOMPARE(QApplication::focusWidget(), main->searchBox->Editor());
        VaultRun::clickRow(main->list, 0);
        QCOMPARE(currentEntry.userName, QStringLiteral("ann"));

        VaultRun::type(main->userNameBox, QStringLiteral("-x"));
        QVERIFY(main->userNameBox->Editor()->hasFocus());
        QCOMPARE(currentEntry.userName, QStringLiteral("ann")); // the box has not been left yet
        // Merely passing the mouse over a button takes the focus, which leaves the box.
        QTest::mouseMove(main->undoButton);
        QTRY_VERIFY(main->undoButton->hasFocus());
        QCOMPARE(currentEntry.userName, QStringLiteral("-xann"));
        QCOMPARE(main->undoButton->Picture(), main->undoButton->overBackground);
        // Nothing was clicked: the undo of the box did not run, the table is untouched.
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("-xann"));
        QCOMPARE(entryTable[1].userName, QStringLiteral("ann"));
    }

    void theTitleBoxIsGreyAsAReadOnlyField()
    {
        VaultRun run;
        VaultWindow* main = run.startActive({ Entry { "Mail", "pw", {}, "anna", {}, {}, {}, {} } });
        QVERIFY(main);
        // The ground of each box at its right end, where no text stands.
        auto ground = [](TextBox* box) {
            const QImage shot = box->Editor()->grab().toImage();
            return shot.pixelColor(shot.width() - 4, shot.height() / 2);
        };
        QCOMPARE(ground(main->titleBox), main->palette().color(QPalette::Window));
        QCOMPARE(ground(main->userNameBox), main->palette().color(QPalette::Base));
        QVERIFY(ground(main->titleBox) != ground(main->userNameBox));
    }

    void menusAsDesigned()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        QVERIFY(main);
        // Each menu with its slot, then its entries with theirs; 0 is a separator.
        const QList<QPair<QString, QList<QPair<QString, int>>>> menus = {
            { QStringLiteral("fileMenu:206"),
                { { QStringLiteral("newEntryAction"), 207 }, { QStringLiteral("deleteEntryAction"), 208 }, { {}, 0 },
                    { QStringLiteral("importAction"), 209 }, { QStringLiteral("exportAction"), 210 }, { {}, 0 },
                    { QStringLiteral("printAction"), 211 }, { {}, 0 }, { QStringLiteral("closeAction"), 212 } } },
            { QStringLiteral("editMenu:213"),
                { { QStringLiteral("undoAction"), 214 }, { QStringLiteral("redoAction"), 215 }, { {}, 0 },
                    { QStringLiteral("cutAction"), 216 }, { QStringLiteral("copyAction"), 217 },
                    { QStringLiteral("pasteAction"), 218 }, { {}, 0 },
                    { QStringLiteral("clearClipboardAction"), 219 } } },
            { QStringLiteral("viewMenu:220"),
                { { QStringLiteral("openDocumentAction"), 221 }, { QStringLiteral("openAddressAction"), 222 },
                    { {}, 0 }, { QStringLiteral("refreshAction"), 223 } } },
            { QStringLiteral("reportsMenu:224"), { { QStringLiteral("reportAction"), 225 } } },
            { QStringLiteral("toolsMenu:226"),
                { { QStringLiteral("generatorAction"), 227 }, { {}, 0 }, { QStringLiteral("settingsAction"), 228 } } },
            { QStringLiteral("helpMenu:229"),
                { { QStringLiteral("readMeAction"), 232 }, { QStringLiteral("licenceAction"), 233 },
                    { QStringLiteral("updateAction"), 234 }, { QStringLiteral("homePageAction"), 235 }, { {}, 0 },
                    { QStringLiteral("aboutAction"), 236 } } },
            { QStringLiteral("trayMenu:0"),
                { { QStringLiteral("showWindowAction"), 237 }, { {}, 0 }, { QStringLiteral("trayUpdateAction"), 234 },
                    { {}, 0 }, { QStringLiteral("trayHomePageAction"), 235 }, { QStringLiteral("forumAction"), 238 },
                    { {}, 0 }, { QStringLiteral("trayAboutAction"), 236 },
                    { QStringLiteral("trayCloseAction"), 212 } } },
        };
        const QList<QAction*> bar = main->menuBar()->actions();
        for (int m = 0; m < menus.size(); ++m) {
            const QStringList head = menus[m].first.split(QLatin1Char(':'));
            auto* menu = main->findChild<QMenu*>(head[0]);
            QVERIFY2(menu, qPrintable(head[0]));
            if (head[1] != QStringLiteral("0")) {
                QCOMPARE(bar.value(m), menu->menuAction()); // in the bar, in this order
                QCOMPARE(menu->title(), Lang(head[1].toInt()));
            }
            const QList<QAction*> entries = menu->actions();
            QCOMPARE(entries.size(), menus[m].second.size());
            for (int i = 0; i < entries.size(); ++i) {
                const auto& [name, slot] = menus[m].second[i];
                QCOMPARE(entries[i]->isSeparator(), slot == 0);
                if (slot == 0)
                    continue;
                QCOMPARE(entries[i]->objectName(), name);
                QCOMPARE(entries[i]->text(), Lang(slot));
                // Nothing is greyed or hidden for want of a selection.
                QVERIFY(entries[i]->isEnabled() && entries[i]->isVisible());
            }
        }
    }

    void assistiveToolsFindEveryControlByName()
    {
        VaultRun run;
        VaultWindow* main = run.startActive({ entry("Bank", "ann") });
        QVERIFY(main);
        auto seen = [](QWidget* w) { return QAccessible::queryAccessibleInterface(w); };
        // The toolbar's buttons have no text; they are named after their menu entries.
        QCOMPARE(seen(main->undoButton)->role(), QAccessible::Button);
        QCOMPARE(seen(main->undoButton)->text(QAccessible::Name), main->undoAction->text().remove(QLatin1Char('&')));
        QCOMPARE(seen(main->searchButton)->text(QAccessible::Name), SpokenCaption(Lang(239)));
        // A box is read by its caption, without the colon.
        QCOMPARE(seen(main->passwordBox->Editor())->text(QAccessible::Name), SpokenCaption(Lang(244)));
        QVERIFY(!seen(main->passwordBox->Editor())->text(QAccessible::Name).endsWith(QLatin1Char(':')));
        // The copy picture beside the password box says so, and pressing it copies that box.
        QAccessibleInterface* copy = seen(main->copyPasswordButton);
        QCOMPARE(copy->role(), QAccessible::Button);
        QCOMPARE(copy->text(QAccessible::Name),
            SpokenCaption(main->copyAction->text()) + QStringLiteral(" - ") + SpokenCaption(Lang(244)));
        VaultRun::clickRow(main->list, 0);
        main->passwordBox->SetText(QStringLiteral("pw-1"));
        copy->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("pw-1"));
        QCOMPARE(seen(main->generatorButton)->text(QAccessible::Name), SpokenCaption(main->generatorAction->text()));
        // The toolbar reacts to the mouse only, so the Tab key passes it by.
        QCOMPARE(main->newEntryButton->focusPolicy(), Qt::ClickFocus);
    }
};

QTEST_MAIN(tst_layout)
#include "tst_layout.moc"
