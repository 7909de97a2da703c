// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's one custom control: a push button drawn from three background pictures, with
// an icon and a caption, that can act as a two-state toggle. Its hover look is its focus look:
// a mouse move over the button takes the input focus, so merely passing over a button runs the
// LostFocus of the box that had it.
#include <QIcon>
#include <QList>
#include <QPair>
#include <QVariant>
#include <QWidget>

class QLabel;
class QTimer;

// The property store of the window that holds controls: the values given at design time,
// under their stored names. A value equal to its default is not stored, as the form's file
// keeps only what differs.
class PropertyBag
{
public:
    QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const;
    void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue);
    // The stored names, in the order they were written.
    QStringList Names() const;

private:
    QList<QPair<QString, QVariant>> values;
};

class SkinnedButton : public QWidget
{
    Q_OBJECT
public:
    // Initialize, then ReadProperties from the host's store; startTimer is running.
    explicit SkinnedButton(QWidget* parent, const PropertyBag& stored = PropertyBag());

    // The properties. The writers store the value and announce it under its stored name;
    // Enabled, CanBeChecked and IsChecked change nothing on the screen (see applyStoredProperties).
    QIcon PictureNormal() const;
    void SetPictureNormal(const QIcon& picture);
    QString Caption() const;
    void SetCaption(const QString& caption);
    bool Enabled() const;
    void SetEnabled(bool enabled);
    bool CanBeChecked() const;
    void SetCanBeChecked(bool canBeChecked);
    bool IsChecked() const;
    void SetIsChecked(bool isChecked);

    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // Once, 10 ms after creation: the stored Enabled takes effect, and a toggle shows its state.
    void applyStoredProperties();

    // The click of the control, its icon or its caption: a toggle flips, then Click.
    void click();

Q_SIGNALS:
    void Click();
    void PropertyChanged(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void initialize();
    void showFocus();
    void hideFocus();
    void pressLook(int button);
    void releaseLook();
    void ShowBackground(const QLabel* background);
    void ShowFrame(bool shown);
    void ShowIcon();

    // Hidden pictures of the three backgrounds, the frame along the four edges, the icon and
    // the caption (both let the mouse through to the control, which behaves alike for all
    // three), and the one-shot timer.
    QLabel *normalBackground, *overBackground, *downBackground;
    QLabel *frameTop, *frameBottom, *frameLeft, *frameRight;
    QLabel* iconLabel;
    QLabel* captionLabel;
    QTimer* startTimer;
    const QLabel* picture = nullptr; // the background on show
    QIcon pictureNormal;
    bool enabled = true;
    bool canBeChecked = false;
    bool isChecked = false;
    // A press whose release may click: not the second press of a double click.
    bool pressed = false;
};

// A button as a window's design gives it: its name, its stored picture and its place in twips
// (the height is always 375).
SkinnedButton* PlacedSkinnedButton(
    QWidget* parent, const char* name, const QIcon& picture, int left, int top, int width);
