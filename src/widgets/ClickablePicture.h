// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's Image control: a picture with a clicked signal (left button released over it)
// and a mouseMoved signal, where the windows put up the hand cursor. A picture that does
// something can be made a stop of the Tab key, where Space or Enter clicks it; the mouse
// still never gives it the focus, so a click leaves the focus where it was.
#include <QLabel>

class ClickablePicture : public QLabel
{
    Q_OBJECT
public:
    explicit ClickablePicture(QWidget* parent = nullptr);
    // A picture of the control's size, drawn sharp at the screen's scale.
    void setPicture(const QIcon& icon);
    void setTabStop(bool stop);

Q_SIGNALS:
    void clicked();
    void mouseMoved();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QIcon picture;
};
