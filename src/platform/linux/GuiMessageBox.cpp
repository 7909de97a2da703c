// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/GuiMessageBox.h"

#include "platform/MessageBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace platform {

MessageAnswer ShowMessageBoxWindow(const MessageBoxCall& call)
{
    QMessageBox box;
    box.setWindowTitle(call.title);
    box.setText(ScreenLines(call.text));
    switch (call.flags & 0x70) {
    case 16:
        box.setIcon(QMessageBox::Critical);
        break;
    case 32:
        box.setIcon(QMessageBox::Question);
        break;
    case 48:
        box.setIcon(QMessageBox::Warning);
        break;
    case 64:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        break;
    }
    struct Choice
    {
        QMessageBox::StandardButton button;
        MessageAnswer result;
    };
    using enum MessageAnswer;
    static const QList<QList<Choice>> sets {
        { { QMessageBox::Ok, Ok } },
        { { QMessageBox::Ok, Ok }, { QMessageBox::Cancel, Cancel } },
        { { QMessageBox::Abort, Abort }, { QMessageBox::Retry, Retry }, { QMessageBox::Ignore, Ignore } },
        { { QMessageBox::Yes, Yes }, { QMessageBox::No, No }, { QMessageBox::Cancel, Cancel } },
        { { QMessageBox::Yes, Yes }, { QMessageBox::No, No } },
        { { QMessageBox::Retry, Retry }, { QMessageBox::Cancel, Cancel } },
    };
    const int buttons = (call.flags & 7) > 5 ? 0 : (call.flags & 7);
    const QList<Choice>& choices = sets.at(buttons);
    const int defaultIndex = qMin<int>((call.flags >> 8) & 3, static_cast<int>(choices.size()) - 1);
    for (int i = 0; i < choices.size(); ++i) {
        QPushButton* b = box.addButton(choices.at(i).button);
        if (i == defaultIndex)
            box.setDefaultButton(b);
    }
    box.exec();
    const auto clicked = box.standardButton(box.clickedButton());
    for (const Choice& c : choices) {
        if (c.button == clicked)
            return c.result;
    }
    // Closed by its close box: the runtime answers Cancel where there is one, else the first.
    for (const Choice& c : choices) {
        if (c.result == Cancel)
            return Cancel;
    }
    return choices.first().result;
}

void InstallWindowMessageBoxes()
{
    SetMessageBoxBackend(&ShowMessageBoxWindow);
}

} // namespace platform
