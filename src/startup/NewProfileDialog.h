#pragma once
// Adds a profile: its folder, settings.txt with the four values as typed (in the clear), the
// marker copied from the program's folder, and the name list written anew. Opened modally from
// the profile page of the settings window, whose list it adds to.
#include "services/WindowSlot.h"

class QLabel;
class QLineEdit;
class QPushButton;

class NewProfileDialog : public SingleDialog<NewProfileDialog>
{
    Q_OBJECT
    friend class SingleDialog<NewProfileDialog>;

public:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();

    QLabel *Label1, *Label2, *Label3, *Label4, *Label5, *Label6;
    QLineEdit *Text1, *Text2, *Text3, *Text4, *Text5;
    QPushButton *Command1, *Command2;

private:
    explicit NewProfileDialog(QWidget* owner);
};
