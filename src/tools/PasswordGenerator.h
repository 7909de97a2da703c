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

    void load();
    void chooseLetters();
    void chooseDigits();
    void chooseDigitsAndLetters();
    void shorten();
    // Longer by one: on any mouse button going down, never from the keyboard.
    void lengthen();
    void generate();
    void deliver();
    void cancel();
    void copyResult();
    void keepUseButtonInStep();

    QGroupBox* alphabetFrame;
    QRadioButton *lettersOption, *digitsOption, *bothOption;
    QPushButton *shorterButton, *longerButton, *generateButton, *useButton, *cancelButton;
    TextBox *lengthBox, *resultBox;
    QLabel* resultCaption;
    ClickablePicture* copyButton;
    QTimer* useButtonTimer;

    // The delivery mode, set by the opener before it shows the dialog: "0" no target, "1" the
    // password box of the vault window, "2" that of the new-entry dialog.
    QString deliveryMode = QStringLiteral("0");
    // The character set: 1 letters, 2 digits, 3 digits and letters.
    qint16 alphabet = 3;
    // Named on every pass; nothing reads it.
    QString setName;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TextBox* target() const;
};

// Opens the generator modally over `owner` with the given delivery mode.
void ShowPasswordGenerator(QWidget* owner, const QString& deliveryMode);
