#pragma once
// The about box: name, version, rights notice, author, the computer's name and four links to
// the maker's pages, which underline under the mouse. It writes and keeps nothing.
#include "services/WindowSlot.h"

class ClickablePicture;
class QLabel;
class QPushButton;

class AboutDialog : public SingleDialog<AboutDialog>
{
    Q_OBJECT
    friend class SingleDialog<AboutDialog>;

public:
    void Form_Load();
    void Command3_Click();
    void Label1_Click();
    // The hover of one link: the hand, that link underlined, the three others not.
    void LinkLabel_MouseMove(ClickablePicture* link);

    QLabel *Label88, *Label86, *Label84, *Label81, *Label79, *Label78, *Label5, *Label4, *Label6, *Label7, *Label8,
        *Label9;
    ClickablePicture* Label1; // the version; a click closes the window
    ClickablePicture *Label14, *Label15, *Label16, *Label17;
    QPushButton* Command3;

private:
    explicit AboutDialog(QWidget* owner);
};

void ShowAbout(QWidget* owner);
