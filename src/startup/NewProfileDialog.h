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
    void load();
    void cancel();
    void addProfile();

    QLabel *nameCaption, *passwordCaption, *heading, *questionCaption, *emailCaption, *answerCaption;
    QLineEdit *nameBox, *passwordBox, *questionBox, *emailBox, *answerBox;
    QPushButton *cancelButton, *addButton;

private:
    explicit NewProfileDialog(QWidget* owner);
};
