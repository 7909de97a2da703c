#pragma once
// The runtime's Image control: a picture with a Click event (left button released over it)
// and a MouseMove event, where the windows put up the hand cursor.
#include <QLabel>

class ImageControl : public QLabel
{
    Q_OBJECT
public:
    explicit ImageControl(QWidget* parent = nullptr);
    // A picture of the control's size, drawn sharp at the screen's scale.
    void SetPicture(const QIcon& icon);

Q_SIGNALS:
    void Click();
    void MouseMove();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QIcon picture;
};
