// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The password generator (the original's frmPwdGen): 4 to 15 characters from letters a to y,
// digits 0 to 8, or both, handed to the password box of the window that opened it, or copied.
// Nothing of it is kept.
#include "core/PasswordRecipe.h"

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
    // `target` is the password box that Use fills, or null (opened from the menu): then Use is
    // never available, and the result can only be copied.
    PasswordGenerator(QWidget* owner, TextBox* target);

    // The tick of the timer that keeps Use in step with the result (every 10 ms; tests call it
    // instead of waiting).
    void keepUseButtonInStep();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void load();
    void shorten();
    // Longer by one: on any mouse button going down, never from the keyboard.
    void lengthen();
    void generate();
    void deliver();
    void copyResult();

    TextBox* target;
    PasswordAlphabet alphabet = PasswordAlphabet::DigitsAndLetters;

    QGroupBox* alphabetFrame;
    QRadioButton *lettersOption, *digitsOption, *bothOption;
    QPushButton *shorterButton, *longerButton, *generateButton, *useButton, *cancelButton;
    TextBox *lengthBox, *resultBox;
    QLabel* resultCaption;
    ClickablePicture* copyButton;
    QTimer* useButtonTimer;
};

// Opens the generator modally over `owner`, for the password box `target` (or none).
void ShowPasswordGenerator(QWidget* owner, TextBox* target);
