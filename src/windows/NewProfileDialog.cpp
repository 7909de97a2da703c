// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/NewProfileDialog.h"

#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/LanguageTable.h"
#include "core/ListControl.h"
#include "core/ProfileFiles.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "windows/ProfileFields.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

NewProfileDialog::NewProfileDialog(QWidget* owner, ListControl& profileNames)
    : SingleDialog(owner)
    , names(profileNames)
{
    setObjectName(QStringLiteral("NewProfileDialog"));
    setWindowModality(Qt::ApplicationModal);
    setFixedSize(Twips(4920), Twips(3540));
    heading = Placed(new QLabel(this), "heading", 120, 120, 4680, 285);
    MakeBold(heading);
    // Top to bottom: name, password, question, answer, e-mail.
    PlaceFieldRows(this,
        { { &nameCaption, "nameCaption", &nameBox, "nameBox" },
            { &passwordCaption, "passwordCaption", &passwordBox, "passwordBox" },
            { &questionCaption, "questionCaption", &questionBox, "questionBox" },
            { &answerCaption, "answerCaption", &answerBox, "answerBox" },
            { &emailCaption, "emailCaption", &emailBox, "emailBox" } },
        540);
    addButton = Placed(new QPushButton(this), "addButton", 2280, 2880, 1200, 375);
    addButton->setDefault(true);
    cancelButton = Placed(new QPushButton(this), "cancelButton", 3600, 2880, 1200, 375);
    connect(addButton, &QPushButton::clicked, this, &NewProfileDialog::addProfile);
    connect(cancelButton, &QPushButton::clicked, this, [] { Unload(); });
    setTabOrder(emailBox, addButton);
    setTabOrder(addButton, cancelButton);
}

void NewProfileDialog::load()
{
    setWindowTitle(Lang(Text::NewProfileTitle));
    heading->setText(Lang(Text::AddNewProfile));
    nameCaption->setText(Lang(Text::TitleLabel));
    passwordCaption->setText(Lang(Text::NewProfilePasswordLabel));
    questionCaption->setText(Lang(Text::ReminderQuestionLabel));
    answerCaption->setText(Lang(Text::ReminderAnswerLabel));
    emailCaption->setText(Lang(Text::EmailLabel));
    addButton->setText(Lang(Text::Add));
    cancelButton->setText(Lang(Text::Cancel));
}

namespace {

// A name is the last component of its folder's path under the data folder: one that names a
// folder already there in any spelling ("administrator" for Administrator, since paths are
// looked up without regard to case), the data folder itself, or another place by a separator
// or "..", would write its keys into another profile's settings.txt, or beside the data tree.
bool nameTaken(const QString& name, const ListControl& names)
{
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String("..") || name.contains(QLatin1Char('\\'))
        || name.contains(QLatin1Char('/')))
        return true;
    for (int i = 0; i < names.rowCount(); ++i) {
        if (names.rowText(i).compare(name, Qt::CaseInsensitive) == 0)
            return true;
    }
    const QString path = DataFolder() + name;
    QString file;
    platform::FirstFileMatching(path, file);
    return platform::FolderExists(path) || !file.isEmpty();
}

} // namespace

void NewProfileDialog::addProfile()
{
    // Nothing else is checked, and nothing is caught.
    // The name goes into files in the code page and names a folder: both must see the same
    // name, so it is taken through the code page here, once ("Łukasz" is "?ukasz" under 1252).
    const QString name = platform::ThroughCodePage(nameBox->text());
    if (nameTaken(name, names)) {
        platform::ShowMessage(Lang(Text::ProfileExists), platform::MessageIcon::Critical);
        return;
    }
    names.addRow(name);
    MakeDirTree(DataFolder() + name);
    // The path is made anew for each value. In the clear, unlike the password change: such a
    // profile with a password can never log in.
    const auto settings = [&name] { return DataFolder() + name + QStringLiteral("\\settings.txt"); };
    WriteIni(Keys::settings, Keys::password, passwordBox->text(), settings());
    WriteIni(Keys::settings, Keys::question, questionBox->text(), settings());
    WriteIni(Keys::settings, Keys::email, emailBox->text(), settings());
    WriteIni(Keys::settings, Keys::answer, answerBox->text(), settings());
    const int copied = platform::CopyFileTo(
        platform::ProgramFolder() + QStringLiteral("\\dummy.dat"), DataFolder() + name + QStringLiteral("\\dummy.dat"));
    if (copied != platform::ErrNone)
        platform::UnhandledError(copied);
    SaveListFile(DataFolder() + QStringLiteral("users.txt"), names);
    Unload();
}
