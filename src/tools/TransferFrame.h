#pragma once
// The look export and import share: a frame with the profile's name, a read-only path and a
// browse button, and two buttons below it.
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <tuple>

class TextBox;

struct TransferFrame
{
    QGroupBox* frame;
    QLabel* lead; // Label2
    QLabel* profile; // Label1
    TextBox* path; // read-only for the user
    QPushButton* browse; // "..."
    QPushButton* action;
    QPushButton* cancel;

    // In that order, for std::tie onto a window's named members.
    auto Controls() const { return std::tuple(frame, lead, profile, path, browse, action, cancel); }
};

// The design-time texts (UTF-8); the cancel button is "&Anuluj".
struct TransferFrameTexts
{
    const char* caption;
    const char* frame;
    const char* lead;
    const char* path;
    const char* action;
};

TransferFrame MakeTransferFrame(QWidget* window, const char* pathName, const char* actionName, const char* cancelName,
    const TransferFrameTexts& texts);

// What a screen reader calls the path and the "..." beside it, once the captions are in place:
// the path by the lead and the profile ("Export the data of user Ann"), the browse button by the
// dialog it opens.
void NameTransferFrame(
    TextBox* path, const QLabel* lead, const QLabel* profile, QPushButton* browse, const QString& browseDialogTitle);
