// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's one custom control: a push button drawn from three background pictures, with
// an icon and a caption. Its hover look is its focus look: a mouse move over the button takes
// the input focus, so merely passing over a button runs the focusLost of the box that had it.
#include <QIcon>
#include <QWidget>

class QLabel;
class QTimer;

class SkinnedButton : public QWidget
{
    Q_OBJECT
public:
    // Initialize, then the picture of the host's design; startTimer is running.
    explicit SkinnedButton(QWidget* parent, const QIcon& picture = QIcon());

    // Empty: no window's design gives a button a caption.
    QString caption() const;

    // Once, 10 ms after creation: the stored Enabled, true in every design, takes effect.
    void applyStoredProperties();

    // The click of the control, its icon or its caption: clicked.
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
    // A press whose release may click: not the second press of a double click.
    bool pressed = false;
};

// A button as a window's design gives it: its name, its stored picture and its place in twips
// (the height is always 375).
SkinnedButton* PlacedSkinnedButton(
    QWidget* parent, const char* name, const QIcon& picture, int left, int top, int width);
