// SPDX-License-Identifier: GPL-3.0-or-later
// The vault window's layout in twips around its minimum size, in both list modes; the toolbar's
// hover that takes the focus from a box, and its clicks; the look of the title box.
#include "ProgramRun.h"
#include "platform/Twips.h"
#include "widgets/SkinnedButton.h"

#include <QClipboard>
#include <QPushButton>
#include <QSignalSpy>

namespace {

void dragTo(VaultWindow* vault, int W, int H)
{
    vault->SetOuterSize(W, H);
    QCoreApplication::processEvents();
}

// Every rule of the layout, for the outer size W by H.
void checkLayout(VaultWindow* vault, int W, int H)
{
    QCOMPARE(vault->OuterWidth(), W);
    QCOMPARE(vault->OuterHeight(), H);
    const bool results = ui::find(vault, Lang(Text::ShowAllPasswords));
    QWidget* list = ui::get(vault, Lang(results ? Text::SearchResults : Text::PasswordList));
    QCOMPARE(list->geometry(),
        QRect(Twips(120), Twips(results ? 1200 : 840), Twips(2415), Twips(results ? H - 2350 : H - 2100)));
    for (Text caption : { Text::TitleLabel, Text::UserNameLabel, Text::PassphraseLabel, Text::PasswordLabel,
             Text::UrlLabel, Text::DocumentLabel })
        QCOMPARE(ui::get(vault, Lang(caption))->width(), Twips(W - 4750));
    QCOMPARE(ui::get(vault, Lang(Text::NoteLabel))->size(), QSize(Twips(W - 4050), Twips(H - 4700)));
    QCOMPARE(vault->findChild<QWidget*>(u"headingStrip"_s)->width(), Twips(W));
    QCOMPARE(vault->findChild<QWidget*>(u"headingLine"_s)->width(), Twips(W));
    QCOMPARE(ui::get(vault, Lang(Text::Save))->pos(), QPoint(Twips(W - 1400), Twips(H - 1600)));
    for (Text box : { Text::UserNameLabel, Text::PassphraseLabel, Text::PasswordLabel, Text::UrlLabel })
        QCOMPARE(ui::get(vault, ActionOnBox(Lang(Text::CopyItem), Lang(box)))->x(), Twips(W - 850));
    QCOMPARE(ui::get(vault, Lang(Text::OpenDocumentItem))->x(), Twips(W - 850));
    for (Text picture : { Text::OpenAddressItem, Text::GeneratorItem })
        QCOMPARE(ui::get(vault, Lang(picture))->x(), Twips(W - 450));
}

} // namespace

class tst_layout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resizeRulesAroundTheMinimumInBothModes()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ Entry { "Bank", {}, {}, "ann", {}, {}, {}, {} } });
        QVERIFY(vault);
        for (const bool results : { false, true }) {
            if (results) {
                ui::get<QLineEdit>(vault, Lang(Text::SearchLabel))->setText(u"ann"_s);
                ui::click<SkinnedButton>(vault, Lang(Text::SearchLabel));
            }
            // Below the minimum in one direction or both it snaps back; at the minimum and
            // above it the window keeps its size (each size one pixel more than the last).
            const int sizes[][4]
                = { { 6000, 5040, 9270, 7140 }, { 9255, 9000, 9270, 9000 }, { 12000, 7125, 12000, 7140 },
                      { 9270, 7140, 9270, 7140 }, { 9285, 7155, 9285, 7155 }, { 15000, 10500, 15000, 10500 } };
            for (const auto& s : sizes) {
                dragTo(vault, s[0], s[1]);
                QTRY_COMPARE(vault->OuterWidth(), s[2]);
                QTRY_COMPARE(vault->OuterHeight(), s[3]);
                checkLayout(vault, s[2], s[3]);
                if (QTest::currentTestFailed())
                    return qWarning("asked %d by %d, results mode %d", s[0], s[1], results);
            }
        }
    }

    void passingOverTheToolbarCarriesTheBoxIntoTheWorkingCopy()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ Entry { "Bank", {}, {}, "ann", {}, {}, {}, {} } });
        QCOMPARE(QApplication::focusWidget(),
            ui::get(vault, Lang(Text::SearchLabel))); // the keyboard starts in the search box
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        vault->keepBoxesInStep(); // the boxes free now, not at the timer's next tick
        ui::type(vault, Lang(Text::UserNameLabel), u"-x"_s);
        QCOMPARE(vault->WorkingCopy().userName, QByteArray("ann")); // the box has not been left yet
        QTest::mouseMove(ui::get(vault, Lang(Text::UndoItem))); // merely passing over a button takes the focus
        QTRY_VERIFY(ui::get(vault, Lang(Text::UndoItem))->hasFocus());
        QCOMPARE(vault->WorkingCopy().userName, QByteArray("-xann"));
        QCOMPARE(ui::text(vault, Lang(Text::UserNameLabel)), u"-xann"_s); // nothing was clicked
    }

    void theTitleBoxIsGreyAsAReadOnlyField()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ Entry { "Mail", "pw", {}, "anna", {}, {}, {}, {} } });
        // The ground of each box at its right end, where no text stands.
        auto ground = [vault](Text caption) {
            const QImage shot = ui::get(vault, Lang(caption))->grab().toImage();
            return shot.pixelColor(shot.width() - 4, shot.height() / 2);
        };
        QCOMPARE(ground(Text::TitleLabel), vault->palette().color(QPalette::Window));
        QCOMPARE(ground(Text::UserNameLabel), vault->palette().color(QPalette::Base));
    }

    void theToolbarClicksAsAButtonAndAScreenReaderPressesThePictures()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ Entry { "Mail", "pw-1", {}, {}, {}, {}, {}, {} } });
        // Without a notification area (as here) the tray's menu stands last in the bar.
        QCOMPARE(vault->menuBar()->actions().value(6)->menu(), vault->TrayMenu());
        // A toolbar button clicks with the left button, on its picture as on its ground; not with another
        // button, nor with a release beside it, nor with a double click's second press.
        auto* b = ui::get<SkinnedButton>(vault, Lang(Text::CutItem));
        QSignalSpy clicks(b, &SkinnedButton::clicked);
        QTest::mouseClick(b, Qt::RightButton);
        QTest::mouseClick(vault->windowHandle(), Qt::LeftButton, {}, b->mapTo(vault, QPoint(10, 10)));
        QTest::mousePress(b, Qt::LeftButton);
        QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(b->width() + 5, 5));
        QTest::mouseDClick(vault->windowHandle(), Qt::LeftButton, {}, b->mapTo(vault, QPoint(20, 10)));
        QCOMPARE(clicks.size(), 2);
        // A screen reader's press on the copy picture beside the password copies that box.
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        QAccessibleInterface* copy = QAccessible::queryAccessibleInterface(
            ui::get(vault, ActionOnBox(Lang(Text::CopyItem), Lang(Text::PasswordLabel))));
        QCOMPARE(copy->role(), QAccessible::Button);
        copy->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(QGuiApplication::clipboard()->text(), u"pw-1"_s);
    }
};

QTEST_MAIN(tst_layout)
#include "tst_layout.moc"
