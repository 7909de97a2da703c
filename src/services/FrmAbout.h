#pragma once
// The about box: name, version, rights notice, author, the computer's name and four links to
// the maker's pages, which underline under the mouse. It writes and keeps nothing.
#include "services/FormSlot.h"

class ImageControl;
class QLabel;
class QPushButton;

class FrmAbout : public SingleDialog<FrmAbout>
{
    Q_OBJECT
    friend class SingleDialog<FrmAbout>;

public:
    void Form_Load();
    void Command3_Click();
    void Label1_Click();
    // The hover of one link: the hand, that link underlined, the three others not.
    void LinkLabel_MouseMove(ImageControl* link);

    QLabel *Label88, *Label86, *Label84, *Label81, *Label79, *Label78, *Label5, *Label4, *Label6, *Label7, *Label8,
        *Label9;
    ImageControl* Label1; // the version; a click closes the window
    ImageControl *Label14, *Label15, *Label16, *Label17;
    QPushButton* Command3;

private:
    explicit FrmAbout(QWidget* owner);
};

void ShowAbout(QWidget* owner);
