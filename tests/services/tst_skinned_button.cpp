// The skinned button as the user sees it: its look after each mouse and focus event, read from its
// pixels, the toggle as an assistive tool reads it, and the height it keeps.
#include "ProgramRun.h"
#include "platform/Twips.h"
#include "services/ProgramPictures.h"
#include "services/SkinnedButton.h"

#include <QSignalSpy>

namespace {

// The background on show, told by a pixel beside the picture, and the frame, by the left edge.
QString look(QWidget* button)
{
    const QImage shot = button->grab().toImage();
    const QPoint inside(shot.width() - 5, shot.height() / 2), edge(0, shot.height() / 2);
    for (int i = 0; i < 3; ++i) {
        const QImage background = ButtonBackground(ButtonLook(i), button->devicePixelRatioF()).toImage();
        if (shot.pixelColor(inside) == background.pixelColor(inside))
            return QStringList({ "normal", "over", "down" })[i]
                + (shot.pixelColor(edge) == background.pixelColor(edge) ? ""_L1 : " framed"_L1);
    }
    return u"unknown"_s;
}

const auto checked = [](QWidget* button) { return QAccessible::queryAccessibleInterface(button)->state().checked; };

} // namespace

class tst_skinned_button : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksFollowTheFocusTheLeftButtonAndTheToggle()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({});
        auto* b = ui::get<SkinnedButton>(vault, Lang(216)); // Cut: nothing to cut before a box is clicked
        QSignalSpy clicks(b, &SkinnedButton::Click);
        QCOMPARE(look(b), u"normal"_s);
        ui::hover(vault, Lang(216)); // passing over takes the focus, and the look stays after the mouse left
        QTest::mouseMove(vault->windowHandle(), QPoint(5, vault->height() - 5));
        QCOMPARE(look(b), u"over framed"_s);
        QTest::mousePress(b, Qt::RightButton); // no press look, and no click
        QCOMPARE(look(b), u"over framed"_s);
        QTest::mouseRelease(b, Qt::RightButton);
        QTest::mousePress(b, Qt::LeftButton);
        QCOMPARE(look(b), u"down framed"_s);
        QTest::mouseRelease(b, Qt::LeftButton);
        QCOMPARE(look(b), u"over framed"_s);
        // The picture clicks as the background does; a release beside it or a double click's second press does not.
        QTest::mouseClick(vault->windowHandle(), Qt::LeftButton, {}, b->mapTo(vault, QPoint(10, 10)));
        QTest::mousePress(b, Qt::LeftButton);
        QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(b->width() + 5, 5));
        QTest::mouseDClick(vault->windowHandle(), Qt::LeftButton, {}, b->mapTo(vault, QPoint(20, 10)));
        QCOMPARE(clicks.size(), 3);
        PlaceTwips(b, 2060, 360, 1815, 2000); // the height stays; the frame's right edge follows the width
        QCOMPARE(b->size(), QSize(Twips(1815), Twips(375)));
        const QImage shot = b->grab().toImage();
        QCOMPARE(shot.pixelColor(shot.width() - 1, 5), shot.pixelColor(0, 5));
        ui::type(vault, Lang(242), {});
        QCOMPARE(look(b), u"normal"_s); // a plain button keeps no frame

        // A checked toggle shows its frame from the one tick after its properties are read.
        PropertyBag stored;
        for (const char* name : { "CHEK", "CCHEK" })
            stored.WriteProperty(QLatin1String(name), true, false);
        stored.WriteProperty(u"CAP"_s, u"Bold"_s, QString());
        b = new SkinnedButton(vault, stored);
        PlaceTwips(b, 4000, 360, 1200, 375);
        b->show();
        QCOMPARE(look(b), u"normal"_s);
        b->applyStoredProperties();
        QVERIFY(checked(b) && look(b) == u"normal framed"_s);
        ui::click(vault, u"Bold"_s); // it flips at once, and shows it when the focus leaves
        QVERIFY(!checked(b) && look(b) == u"over framed"_s);
        ui::type(vault, Lang(242), {});
        QCOMPARE(look(b), u"normal"_s);
        // An assistive tool's press is a click, once the tool has its answer.
        QAccessible::queryAccessibleInterface(b)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QVERIFY(!checked(b));
        QTRY_VERIFY(checked(b) && look(b) == u"normal"_s);
    }
};

QTEST_MAIN(tst_skinned_button)
#include "tst_skinned_button.moc"
