// The skinned button on its own: the look of each mouse and focus event, the toggle, the stored
// properties and the one tick that applies them, the height it keeps.
#include "platform/Twips.h"
#include "services/SkinnedButton.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

// A window with a box and a button, active, the focus in the box.
struct Host
{
    explicit Host(const PropertyBag& stored = PropertyBag())
    {
        box = new QLineEdit(&window);
        box->setGeometry(0, 0, 100, 20);
        button = Placed(new SkinnedButton(&window, stored), "Command1", 120, 600, 900, 375);
        window.resize(200, 100);
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("the host window did not become active");
        box->setFocus();
    }
    QWidget window;
    QLineEdit* box;
    SkinnedButton* button;
};

PropertyBag stored(std::initializer_list<std::pair<const char*, QVariant>> values)
{
    PropertyBag bag;
    for (const auto& [name, value] : values)
        bag.WriteProperty(QLatin1String(name), value, QVariant());
    return bag;
}

} // namespace

class tst_skinned_button : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksFollowFocusAndLeftButton()
    {
        Host host;
        SkinnedButton* b = host.button;
        QSignalSpy clicks(b, &SkinnedButton::Click);
        QCOMPARE(b->Picture(), b->normalBackground);
        QVERIFY(!b->FrameShown());

        // Passing over the button is taking the focus: the over look, which stays after the
        // mouse has gone, until the focus goes elsewhere.
        QTest::mouseMove(b, QPoint(5, 5));
        QTRY_VERIFY(b->hasFocus());
        QCOMPARE(b->Picture(), b->overBackground);
        QVERIFY(b->FrameShown());

        // The right button changes nothing going down, shows the over look coming up, no click.
        QTest::mousePress(b, Qt::RightButton);
        QCOMPARE(b->Picture(), b->overBackground);
        QTest::mouseRelease(b, Qt::RightButton);
        QCOMPARE(b->Picture(), b->overBackground);
        QCOMPARE(clicks.size(), 0);

        QTest::mousePress(b, Qt::LeftButton);
        QCOMPARE(b->Picture(), b->downBackground);
        QVERIFY(b->FrameShown());
        QTest::mouseRelease(b, Qt::LeftButton);
        QCOMPARE(b->Picture(), b->overBackground);
        QCOMPARE(clicks.size(), 1);

        // The icon and the caption click as the background does.
        b->SetCaption(QStringLiteral("Go"));
        QTest::mouseClick(b->captionLabel, Qt::LeftButton);
        QTest::mouseClick(b->iconLabel, Qt::LeftButton);
        QCOMPARE(clicks.size(), 3);
        // Pressed on the button, released beside it: no click.
        QTest::mousePress(b, Qt::LeftButton);
        QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(b->width() + 5, 5));
        QCOMPARE(clicks.size(), 3);
        // A double click is one click: its second press is no MouseDown and raises no Click.
        // (Through the window, as the window system delivers a double click.)
        QTest::mouseDClick(host.window.windowHandle(), Qt::LeftButton, {}, b->geometry().center());
        QCOMPARE(clicks.size(), 4);
        QCOMPARE(b->Picture(), b->overBackground);

        host.box->setFocus();
        QCOMPARE(b->Picture(), b->normalBackground);
        QVERIFY(!b->FrameShown());
    }

    void toggleShowsItsStateWhenTheFocusLeaves()
    {
        Host host(stored({ { "CHEK", true } }));
        SkinnedButton* b = host.button;
        QVERIFY(b->CanBeChecked());
        QVERIFY(!b->IsChecked());
        QSignalSpy clicks(b, &SkinnedButton::Click);

        QTest::mouseClick(b, Qt::LeftButton);
        QVERIFY(b->IsChecked());
        QCOMPARE(clicks.size(), 1);
        // Still the look of a button with the focus: the state shows only when it leaves.
        QCOMPARE(b->Picture(), b->overBackground);
        host.box->setFocus();
        QCOMPARE(b->Picture(), b->normalBackground);
        QVERIFY(b->FrameShown());

        QTest::mouseClick(b, Qt::LeftButton);
        QVERIFY(!b->IsChecked());
        QVERIFY(b->FrameShown());
        host.box->setFocus();
        QVERIFY(!b->FrameShown());

        // A plain button never keeps its frame.
        b->SetCanBeChecked(false);
        QTest::mouseClick(b, Qt::LeftButton);
        QVERIFY(!b->IsChecked());
        host.box->setFocus();
        QVERIFY(!b->FrameShown());
    }

    void storedPropertiesTakeEffectAtTheOneTick()
    {
        Host host(
            stored({ { "ENAB", false }, { "CHEK", true }, { "CCHEK", true }, { "CAP", QStringLiteral("Find") } }));
        SkinnedButton* b = host.button;
        QCOMPARE(b->Caption(), QStringLiteral("Find"));
        QVERIFY(b->captionLabel->width() > 0); // the caption sizes itself
        // Until the tick the control is as Initialize left it: enabled, plain look.
        QVERIFY(b->isEnabled());
        QVERIFY(!b->FrameShown());
        QTRY_VERIFY(!b->startTimer->isActive());
        QVERIFY(!b->isEnabled());
        QVERIFY(b->FrameShown()); // a checked toggle
        QCOMPARE(b->Picture(), b->normalBackground);

        // Enabled set by code later is the member only; nothing on the screen follows it.
        QSignalSpy changed(b, &SkinnedButton::PropertyChanged);
        b->SetEnabled(true);
        QVERIFY(b->Enabled());
        QVERIFY(!b->isEnabled());
        b->SetIsChecked(false);
        QVERIFY(b->FrameShown());
        b->SetCaption(QStringLiteral("Search"));
        b->SetPictureNormal(QIcon());
        b->SetCanBeChecked(false);
        QCOMPARE(changed.size(), 5);
        const QStringList names { QStringLiteral("ENAB"), QStringLiteral("CCHEK"), QStringLiteral("CAP"),
            QStringLiteral("PictureNormal"), QStringLiteral("CHEK") };
        for (int i = 0; i < names.size(); ++i)
            QCOMPARE(changed.at(i).at(0).toString(), names.at(i));
    }

    void writesInItsOrderAndOnlyWhatDiffers()
    {
        Host host;
        SkinnedButton* b = host.button;
        PropertyBag defaults;
        b->WriteProperties(defaults);
        QVERIFY(defaults.Names().isEmpty());

        b->SetIsChecked(true);
        b->SetCaption(QStringLiteral("OK"));
        b->SetEnabled(false);
        b->SetCanBeChecked(true);
        QPixmap dot(4, 4);
        dot.fill(Qt::red);
        b->SetPictureNormal(QIcon(dot));
        PropertyBag bag;
        b->WriteProperties(bag);
        QCOMPARE(bag.Names(),
            QStringList({ QStringLiteral("ENAB"), QStringLiteral("PictureNormal"), QStringLiteral("CHEK"),
                QStringLiteral("CCHEK"), QStringLiteral("CAP") }));

        // What one button wrote, another reads back.
        SkinnedButton copy(&host.window, bag);
        QCOMPARE(copy.Caption(), QStringLiteral("OK"));
        QVERIFY(!copy.Enabled());
        QVERIFY(copy.CanBeChecked());
        QVERIFY(copy.IsChecked());
        QVERIFY(!copy.PictureNormal().isNull());
        QVERIFY(!copy.iconLabel->pixmap().isNull());
    }

    void assistiveToolsSeeAPushButton()
    {
        Host host(stored({ { "CHEK", true }, { "CAP", QStringLiteral("Bold") } }));
        SkinnedButton* b = host.button;
        QSignalSpy clicks(b, &SkinnedButton::Click);
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(b);
        QVERIFY(seen);
        QCOMPARE(seen->role(), QAccessible::Button);
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Bold"));
        b->setAccessibleName(QStringLiteral("Make bold"));
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Make bold"));
        // Its press is a click: the toggle flips and Click is raised.
        QVERIFY(seen->actionInterface());
        seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.size(), 0); // after the tool has its answer
        QTRY_COMPARE(clicks.size(), 1);
        QVERIFY(b->IsChecked());
        QVERIFY(seen->state().checked);
    }

    void heightIsAlways375Twips()
    {
        Host host;
        SkinnedButton* b = host.button;
        QCOMPARE(b->height(), Twips(375));
        for (int twips : { 100, 375, 2000 }) {
            PlaceTwips(b, 0, 0, 1215, twips);
            QCOMPARE(b->height(), Twips(375));
            QCOMPARE(b->width(), Twips(1215)); // the width is free
            QCOMPARE(b->frameRight->x(), Twips(1215 - 30));
        }
    }
};

QTEST_MAIN(tst_skinned_button)
#include "tst_skinned_button.moc"
