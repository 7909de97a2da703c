// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's one custom control: a push button drawn from three background pictures, with
// an icon and a caption, that can act as a two-state toggle. Its hover look is its focus look:
// a mouse move over the button takes the input focus, so merely passing over a button runs the
// focusLost of the box that had it.
#include <QIcon>
#include <QList>
#include <QPair>
#include <QVariant>
#include <QWidget>

class QLabel;
class QTimer;

// The values a window's design gives its controls, under their stored names. A value equal to
// its default is not stored, as the form's file keeps only what differs.
class DesignValues
{
public:
    QVariant value(const QString& name, const QVariant& defaultValue) const;
    void setValue(const QString& name, const QVariant& value, const QVariant& defaultValue);

private:
    QList<QPair<QString, QVariant>> values;
};

class SkinnedButton : public QWidget
{
    Q_OBJECT
public:
    // Initialize, then the values of the host's design; startTimer is running.
    explicit SkinnedButton(QWidget* parent, const DesignValues& stored = DesignValues());

    QString caption() const;
    bool isCheckable() const { return checkable; }
    bool isChecked() const { return checked; }

    // Once, 10 ms after creation: the stored Enabled takes effect, and a toggle shows its state.
    void applyStoredProperties();

    // The click of the control, its icon or its caption: a toggle flips, then clicked.
    void click();

Q_SIGNALS:
    void clicked();

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
    bool checkable = false;
    bool checked = false;
    // A press whose release may click: not the second press of a double click.
    bool pressed = false;
};

// A button as a window's design gives it: its name, its stored picture and its place in twips
// (the height is always 375).
SkinnedButton* PlacedSkinnedButton(
    QWidget* parent, const char* name, const QIcon& picture, int left, int top, int width);
