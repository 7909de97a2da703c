// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The about box (the original's FrmAbout): name, version, rights notice, author, the computer's name and four links to
// the maker's pages, which underline under the mouse. It writes and keeps nothing.
#include "widgets/WindowSlot.h"

class ClickablePicture;
class QLabel;
class QPushButton;

class AboutDialog : public SingleDialog<AboutDialog>
{
    Q_OBJECT
    friend class SingleDialog<AboutDialog>;

private:
    explicit AboutDialog(QWidget* owner);
    void load();
    // The hover of one link: the hand, that link underlined, the three others not.
    void underlineLink(ClickablePicture* link);

    QLabel *productName, *versionCaption, *rightsNotice, *homePageCaption, *authorCaption, *author, *computerCaption,
        *computerName, *supportHeading, *supportCaption, *forumCaption, *contactCaption;
    ClickablePicture* version; // the version; a click closes the window
    ClickablePicture *homePageLink, *supportLink, *forumLink, *contactLink;
    QPushButton* closeButton;
};

void ShowAbout(QWidget* owner);
