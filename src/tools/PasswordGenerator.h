#pragma once
// The password generator: 4 to 15 characters from letters a to y, digits 0 to 8, or both,
// handed to the password box of the window that opened it, or copied. Nothing of it is kept.
#include <QDialog>

class ClickablePicture;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTimer;
class TextBox;

class PasswordGenerator : public QDialog
{
    Q_OBJECT
public:
    explicit PasswordGenerator(QWidget* owner);

    void Form_Load();
    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Command1_Click();
    // Longer by one: on any mouse button going down, never from the keyboard.
    void Command2_MouseDown();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Image4_Click();
    void Timer1_Timer();

    QGroupBox* Frame1;
    QRadioButton *Option1, *Option2, *Option3;
    QPushButton *Command1, *Command2, *Command3, *Command4, *Command5;
    TextBox *Text1, *Text2;
    QLabel* Label2;
    ClickablePicture* Image4;
    QTimer* Timer1;

    // The delivery mode, set by the opener before it shows the dialog: "0" no target, "1" the
    // password box of the vault window, "2" that of the new-entry dialog.
    QString deliveryMode = QStringLiteral("0");
    // The character set: 1 letters, 2 digits, 3 digits and letters.
    qint16 selector = 3;
    // Named on every pass; nothing reads it.
    QString setName;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TextBox* target() const;
};

// Opens the generator modally over `owner` with the given delivery mode.
void ShowPasswordGenerator(QWidget* owner, const QString& deliveryMode);
