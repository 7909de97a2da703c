// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/VaultWindow.h"

#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/EntrySearch.h"
#include "core/LanguageTable.h"
#include "core/ProfileFiles.h"
#include "core/Vault.h"
#include "platform/Clipboard.h"
#include "platform/Cursor.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "widgets/ClickablePicture.h"
#include "widgets/ClipboardCopy.h"
#include "widgets/ListBox.h"
#include "widgets/ProductLinks.h"
#include "widgets/ProgramPictures.h"
#include "widgets/ShellOpen.h"
#include "widgets/SkinnedButton.h"
#include "widgets/TextBox.h"
#include "widgets/WindowSlot.h"
#include "windows/AboutDialog.h"
#include "windows/EntryBoxes.h"
#include "windows/EntryDialog.h"
#include "windows/ExportDialog.h"
#include "windows/ImportDialog.h"
#include "windows/PasswordGenerator.h"
#include "windows/ReportWindow.h"
#include "windows/SilentUpdateCheck.h"
#include "windows/TrayHost.h"
#include "windows/UpdateWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <functional>
#include <utility>

namespace {

WindowSlot<VaultWindow>& slot()
{
    static WindowSlot<VaultWindow> form;
    return form;
}

} // namespace

VaultWindow* VaultWindow::Open(Vault& vault)
{
    return slot().Touch([&vault] { return new VaultWindow(vault); }, [](VaultWindow* form) { form->load(); });
}

VaultWindow* VaultWindow::Loaded()
{
    return slot().Loaded();
}

void VaultWindow::Unload()
{
    VaultWindow* form = slot().Take();
    if (!form)
        return;
    form->isUnloaded = true;
    form->save();
    form->hide();
    form->deleteLater();
    Q_EMIT form->unloaded();
}

VaultWindow::VaultWindow(Vault& vault)
    : vault(vault)
{
    setObjectName(QStringLiteral("VaultWindow"));
    buildMenus();
    buildControls();
    boxLockTimer = new QTimer(this);
    boxLockTimer->setObjectName(QStringLiteral("boxLockTimer"));
    boxLockTimer->setInterval(100);
    connect(boxLockTimer, &QTimer::timeout, this, &VaultWindow::keepBoxesInStep);
    boxLockTimer->start();
    updateCheckTimer = new QTimer(this);
    updateCheckTimer->setObjectName(QStringLiteral("updateCheckTimer"));
    updateCheckTimer->setInterval(1000);
    connect(updateCheckTimer, &QTimer::timeout, this, &VaultWindow::startSilentUpdateCheck);
    // The design client area is 9030 by 6300 twips below the menu bar.
    SetOuterSize(9030 + frameWidth, 6300 + frameHeight);
}

void VaultWindow::buildMenus()
{
    auto menu = [this](const char* name) {
        auto* m = menuBar()->addMenu(QString());
        m->setObjectName(QLatin1String(name));
        return m;
    };
    auto entry = [this](QMenu* m, const char* name) {
        auto* a = m->addAction(QString());
        a->setObjectName(QLatin1String(name));
        return a;
    };
    fileMenu = menu("fileMenu");
    newEntryAction = entry(fileMenu, "newEntryAction");
    deleteEntryAction = entry(fileMenu, "deleteEntryAction");
    fileMenu->addSeparator();
    importAction = entry(fileMenu, "importAction");
    exportAction = entry(fileMenu, "exportAction");
    fileMenu->addSeparator();
    printAction = entry(fileMenu, "printAction");
    fileMenu->addSeparator();
    closeAction = entry(fileMenu, "closeAction");

    editMenu = menu("editMenu");
    undoAction = entry(editMenu, "undoAction");
    redoAction = entry(editMenu, "redoAction");
    editMenu->addSeparator();
    cutAction = entry(editMenu, "cutAction");
    copyAction = entry(editMenu, "copyAction");
    pasteAction = entry(editMenu, "pasteAction");
    editMenu->addSeparator();
    clearClipboardAction = entry(editMenu, "clearClipboardAction");

    viewMenu = menu("viewMenu");
    openDocumentAction = entry(viewMenu, "openDocumentAction");
    openAddressAction = entry(viewMenu, "openAddressAction");
    viewMenu->addSeparator();
    refreshAction = entry(viewMenu, "refreshAction");

    reportsMenu = menu("reportsMenu");
    reportAction = entry(reportsMenu, "reportAction");

    toolsMenu = menu("toolsMenu");
    generatorAction = entry(toolsMenu, "generatorAction");
    toolsMenu->addSeparator();
    settingsAction = entry(toolsMenu, "settingsAction");

    helpMenu = menu("helpMenu");
    readMeAction = entry(helpMenu, "readMeAction");
    licenceAction = entry(helpMenu, "licenceAction");
    updateAction = entry(helpMenu, "updateAction");
    homePageAction = entry(helpMenu, "homePageAction");
    helpMenu->addSeparator();
    aboutAction = entry(helpMenu, "aboutAction");

    trayMenu = new QMenu(this);
    trayMenu->setObjectName(QStringLiteral("trayMenu"));
    showWindowAction = entry(trayMenu, "showWindowAction");
    trayMenu->addSeparator();
    trayUpdateAction = entry(trayMenu, "trayUpdateAction");
    trayMenu->addSeparator();
    trayHomePageAction = entry(trayMenu, "trayHomePageAction");
    forumAction = entry(trayMenu, "forumAction");
    trayMenu->addSeparator();
    trayAboutAction = entry(trayMenu, "trayAboutAction");
    trayCloseAction = entry(trayMenu, "trayCloseAction");
    // A window loaded again (Settings > OK, the way back through the icon's menu) has the menu
    // where the first load put it.
    if (const TrayHost* host = TrayHost::Loaded(); host && host->MenuInWindow())
        ShowTrayMenuInBar();

    connect(newEntryAction, &QAction::triggered, this, &VaultWindow::newEntry);
    connect(deleteEntryAction, &QAction::triggered, this, &VaultWindow::deleteEntryFromMenu);
    connect(closeAction, &QAction::triggered, this, &VaultWindow::endRequested);
    connect(refreshAction, &QAction::triggered, this, &VaultWindow::refresh);
    connect(showWindowAction, &QAction::triggered, this, &VaultWindow::showWindow);
    connect(trayCloseAction, &QAction::triggered, this, &VaultWindow::endRequested);
    connect(copyAction, &QAction::triggered, this, &VaultWindow::copyCurrentField);
    connect(cutAction, &QAction::triggered, this, &VaultWindow::cutCurrentField);
    connect(pasteAction, &QAction::triggered, this, &VaultWindow::pasteIntoCurrentField);
    connect(undoAction, &QAction::triggered, this, &VaultWindow::undoCurrentField);
    connect(redoAction, &QAction::triggered, this, &VaultWindow::undoCurrentField); // a second undo
    connect(clearClipboardAction, &QAction::triggered, this, &VaultWindow::clearClipboard);
    connect(openAddressAction, &QAction::triggered, this, &VaultWindow::openAddress);
    connect(openDocumentAction, &QAction::triggered, this, &VaultWindow::openDocument);
    connect(generatorAction, &QAction::triggered, this, &VaultWindow::openGenerator);
    connect(settingsAction, &QAction::triggered, this, &VaultWindow::openSettings);
    connect(reportAction, &QAction::triggered, this, &VaultWindow::showReport);
    connect(printAction, &QAction::triggered, this, &VaultWindow::showReport);
    connect(exportAction, &QAction::triggered, this, &VaultWindow::exportVault);
    connect(importAction, &QAction::triggered, this, &VaultWindow::importVault);
    connect(updateAction, &QAction::triggered, this, &VaultWindow::checkForUpdates);
    connect(trayUpdateAction, &QAction::triggered, this, &VaultWindow::checkForUpdates);
    connect(aboutAction, &QAction::triggered, this, &VaultWindow::showAbout);
    connect(trayAboutAction, &QAction::triggered, this, &VaultWindow::showAbout);
    connect(trayHomePageAction, &QAction::triggered, this, &VaultWindow::openHomePage);
    connect(homePageAction, &QAction::triggered, this, &VaultWindow::openHomePage);
    connect(forumAction, &QAction::triggered, this, &VaultWindow::openForum);
    connect(readMeAction, &QAction::triggered, this, &VaultWindow::openReadMe);
    connect(licenceAction, &QAction::triggered, this, &VaultWindow::openLicence);
}

void VaultWindow::buildControls()
{
    auto* client = new QWidget(this);
    client->setObjectName(QStringLiteral("client"));
    setCentralWidget(client);

    auto label = [&](const char* name) { return Named(new QLabel(client), name); };
    auto box = [&](const char* name, TextBox::Kind kind) { return Named(new TextBox(kind, client), name); };
    auto button = [&](const char* name) { return Named(new QPushButton(client), name); };

    // A shaded strip with the list's heading and the entry's title on it, and a line under it.
    headingStrip = label("headingStrip");
    headingStrip->setAutoFillBackground(true);
    headingStrip->setBackgroundRole(QPalette::AlternateBase);
    PlaceTwips(headingStrip, 0, 360, 9270, 330);
    headingLine = Named(new QFrame(client), "headingLine");
    headingLine->setFrameShape(QFrame::HLine);
    headingLine->setFrameShadow(QFrame::Plain);
    headingLine->setForegroundRole(QPalette::Mid);
    PlaceTwips(headingLine, 0, 675, 9270, 15);

    listHeading = label("listHeading");
    PlaceTwips(listHeading, 120, 405, 2415, 330);
    showAllButton = button("showAllButton");
    PlaceTwips(showAllButton, 120, 760, 2415, 375);
    showAllButton->setVisible(false);
    connect(showAllButton, &QPushButton::clicked, this, &VaultWindow::showAllEntries);
    list = Named(new ListBox(true, client), "list");
    PlaceTwips(list, 120, 840, 2415, 4785);
    connect(list, &ListBox::rowClicked, this, &VaultWindow::showSelectedEntry);

    searchCaption = label("searchCaption");
    searchCaption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    PlaceTwips(searchCaption, 4080, 0, 1000, 330);
    searchBox = box("searchBox", TextBox::SingleLine);
    searchCaption->setBuddy(searchBox);
    PlaceTwips(searchBox, 5160, 20, 2400, 300);
    searchButton = PlacedSkinnedButton(client, "searchButton", SearchPicture(), 7620, 0, 615);
    connect(searchButton, &SkinnedButton::clicked, this, &VaultWindow::search);

    entryHeading = label("entryHeading");
    MakeBold(entryHeading);
    PlaceTwips(entryHeading, 2640, 405, 4335, 330);

    struct Field
    {
        QLabel** caption;
        const char* captionName;
        int captionLeft;
        TextBox** control;
        const char* name;
        int top;
        int height;
        TextBox::Kind kind;
    };
    const Field fields[] = {
        { &titleCaption, "titleCaption", 2640, &titleBox, "titleBox", 840, 330, TextBox::SingleLine },
        { &userNameCaption, "userNameCaption", 2640, &userNameBox, "userNameBox", 1200, 330, TextBox::SingleLine },
        { &passphraseCaption, "passphraseCaption", 2520, &passphraseBox, "passphraseBox", 1560, 330,
            TextBox::SingleLine },
        { &passwordCaption, "passwordCaption", 2640, &passwordBox, "passwordBox", 1920, 330, TextBox::SingleLine },
        { &urlCaption, "urlCaption", 2640, &urlBox, "urlBox", 2280, 330, TextBox::SingleLine },
        { &documentCaption, "documentCaption", 2640, &documentBox, "documentBox", 2640, 330, TextBox::MultiLine },
        { &noteCaption, "noteCaption", 2640, &noteBox, "noteBox", 3000, 2355, TextBox::MultiLine },
    };
    for (const Field& f : fields) {
        *f.caption = label(f.captionName);
        PlaceTwips(*f.caption, f.captionLeft, f.top + 45, 3840 - f.captionLeft - 60, 285);
        *f.control = box(f.name, f.kind);
        PlaceTwips(*f.control, 3840, f.top, 4335, f.height);
        (*f.caption)->setBuddy(*f.control);
    }
    titleBox->setLocked(true);
    // Grey as a read-only field: a line edit paints its ground in the palette's Base colour.
    QPalette readOnly = titleBox->editor()->palette();
    readOnly.setColor(QPalette::Base, readOnly.color(QPalette::Window));
    titleBox->editor()->setPalette(readOnly);
    documentBox->setScrollBars(false, true);
    noteBox->setScrollBars(true, true);
    noteBox->resize(Twips(5055), noteBox->height());

    CarryIntoWorkingCopy(this, boxes(), working);

    // Only a click into a box makes it the current field: Tab does not, and nothing clears it.
    for (TextBox* b : { userNameBox, passphraseBox, passwordBox, urlBox, documentBox, noteBox })
        connect(b, &TextBox::clicked, this, [this, b] { currentField = b; });

    buildPictures(client);

    saveButton = button("saveButton");
    PlaceTwips(saveButton, 7680, 5400, 1215, 375);
    connect(saveButton, &QPushButton::clicked, this, &VaultWindow::saveChangedEntry);

    // The toolbar: skinned buttons with pictures and no text, at their design Left. They react
    // to the mouse only; the Tab key passes them by.
    struct Tool
    {
        SkinnedButton** control;
        const char* name;
        int left;
        QIcon (*picture)();
        void (VaultWindow::*click)();
    };
    const Tool tools[] = {
        { &newEntryButton, "newEntryButton", 120, &NewEntryPicture, &VaultWindow::newEntry },
        { &deleteEntryButton, "deleteEntryButton", 480, &DeleteEntryPicture, &VaultWindow::deleteEntryFromToolbar },
        { &printButton, "printButton", 900, &PrintPicture, &VaultWindow::showReport },
        { &reportButton, "reportButton", 1260, &ReportPicture, &VaultWindow::showReport },
        { &copyButton, "copyButton", 1690, &CopyPicture, &VaultWindow::copyCurrentField },
        { &cutButton, "cutButton", 2060, &CutPicture, &VaultWindow::cutCurrentField },
        { &pasteButton, "pasteButton", 2420, &PastePicture, &VaultWindow::pasteIntoCurrentField },
        { &undoButton, "undoButton", 2820, &UndoPicture, &VaultWindow::undoCurrentField },
        { &redoButton, "redoButton", 3180, &RedoPicture, &VaultWindow::undoCurrentField },
        { &settingsButton, "settingsButton", 3620, &SettingsPicture, &VaultWindow::openSettings },
    };
    for (const Tool& t : tools) {
        *t.control = PlacedSkinnedButton(client, t.name, t.picture(), t.left, 0, 375);
        connect(*t.control, &SkinnedButton::clicked, this, t.click);
    }

    // The Tab key as the eye goes: the search box at the top, the list, then each box with the
    // pictures beside it.
    SetTabOrder({ searchBox, showAllButton, list, titleBox, userNameBox, copyUserNameButton, passphraseBox,
        copyPassphraseButton, passwordBox, copyPasswordButton, generatorButton, urlBox, copyUrlButton,
        openAddressButton, documentBox, openDocumentButton, noteBox, saveButton });

    const int stretches[4] = { 1, 1, 2, 2 };
    for (int i = 0; i < 4; ++i) {
        statusPanels[i] = new QLabel(this);
        statusPanels[i]->setObjectName(QStringLiteral("statusPanels%1").arg(i + 1));
        statusBar()->addWidget(statusPanels[i], stretches[i]);
    }
    statusBar()->setSizeGripEnabled(true);
}

void VaultWindow::buildPictures(QWidget* client)
{
    struct Picture
    {
        ClickablePicture** control;
        const char* name;
        int left;
        int top;
        QIcon (*picture)();
        std::function<void()> click;
    };
    // The copy pictures copy the box beside them, whatever field was clicked last.
    const Picture pictures[] = {
        { &copyUserNameButton, "copyUserNameButton", 8280, 1250, &CopyPicture, [this] { copyBoxBeside(userNameBox); } },
        { &copyPassphraseButton, "copyPassphraseButton", 8280, 1610, &CopyPicture,
            [this] { copyBoxBeside(passphraseBox); } },
        { &copyPasswordButton, "copyPasswordButton", 8280, 1970, &CopyPicture, [this] { copyBoxBeside(passwordBox); } },
        { &copyUrlButton, "copyUrlButton", 8280, 2320, &CopyPicture, [this] { copyBoxBeside(urlBox); } },
        { &openDocumentButton, "openDocumentButton", 8280, 2690, &DocumentPicture, [this] { openDocumentIfAny(); } },
        { &openAddressButton, "openAddressButton", 8640, 2320, &WebPicture, [this] { openAddressIfAny(); } },
        { &generatorButton, "generatorButton", 8640, 1970, &GeneratorPicture, [this] { openGeneratorForPassword(); } },
    };
    for (const Picture& p : pictures) {
        auto* image = new ClickablePicture(client);
        image->setObjectName(QLatin1String(p.name));
        PlaceTwips(image, p.left, p.top, 240, 240);
        image->setPicture(p.picture());
        image->setTabStop(true);
        connect(image, &ClickablePicture::clicked, this, p.click);
        connect(image, &ClickablePicture::mouseMoved, this, [image] { platform::ShowHandCursor(image); });
        *p.control = image;
    }
}

void VaultWindow::setCaptions()
{
    const std::pair<QMenu*, Text> menus[] = {
        { fileMenu, Text::FileMenu },
        { editMenu, Text::EditMenu },
        { viewMenu, Text::ViewMenu },
        { reportsMenu, Text::ReportsMenu },
        { toolsMenu, Text::ToolsMenu },
        { helpMenu, Text::HelpMenu },
    };
    for (const auto& [menu, title] : menus)
        menu->setTitle(Lang(title));
    const std::pair<QAction*, Text> entries[] = {
        { newEntryAction, Text::NewEntryItem },
        { deleteEntryAction, Text::DeleteEntryItem },
        { importAction, Text::ImportItem },
        { exportAction, Text::ExportItem },
        { printAction, Text::PrintItem },
        { closeAction, Text::CloseItem },
        { undoAction, Text::UndoItem },
        { redoAction, Text::RedoItem },
        { cutAction, Text::CutItem },
        { copyAction, Text::CopyItem },
        { pasteAction, Text::PasteItem },
        { clearClipboardAction, Text::ClearClipboardItem },
        { openDocumentAction, Text::OpenDocumentItem },
        { openAddressAction, Text::OpenAddressItem },
        { refreshAction, Text::RefreshItem },
        { reportAction, Text::PasswordListItem },
        { generatorAction, Text::GeneratorItem },
        { settingsAction, Text::SettingsItem },
        { readMeAction, Text::ReadMeItem },
        { licenceAction, Text::LicenceItem },
        { updateAction, Text::CheckForUpdatesItem },
        { homePageAction, Text::HomePageItem },
        { aboutAction, Text::AboutItem },
        { showWindowAction, Text::OpenProgramItem },
        { trayUpdateAction, Text::CheckForUpdatesItem },
        { trayHomePageAction, Text::HomePageItem },
        { forumAction, Text::ForumItem },
        { trayAboutAction, Text::AboutItem },
        { trayCloseAction, Text::CloseItem },
    };
    for (const auto& [action, text] : entries)
        action->setText(Lang(text));
    searchCaption->setText(Lang(Text::SearchLabel));
    // The toolbar has pictures only; assistive tools name each button after its menu entry.
    const std::pair<SkinnedButton*, QAction*> tools[] = {
        { newEntryButton, newEntryAction },
        { deleteEntryButton, deleteEntryAction },
        { printButton, printAction },
        { reportButton, reportAction },
        { copyButton, copyAction },
        { cutButton, cutAction },
        { pasteButton, pasteAction },
        { undoButton, undoAction },
        { redoButton, redoAction },
        { settingsButton, settingsAction },
    };
    for (const auto& [tool, action] : tools)
        tool->setAccessibleName(action->iconText());
    searchButton->setAccessibleName(SpokenCaption(searchCaption->text()));
    setListHeading(Lang(Text::PasswordList));
    SetEntryCaptions({ titleCaption, userNameCaption, passphraseCaption, passwordCaption, urlCaption, documentCaption,
        noteCaption });
    // The pictures beside the boxes, named by what they do and the box they act on.
    for (const auto& [image, caption] :
        { std::pair { copyUserNameButton, userNameCaption }, std::pair { copyPassphraseButton, passphraseCaption },
            std::pair { copyPasswordButton, passwordCaption }, std::pair { copyUrlButton, urlCaption } })
        image->setAccessibleName(ActionOnBox(copyAction->text(), caption->text()));
    openDocumentButton->setAccessibleName(SpokenCaption(openDocumentAction->text()));
    openAddressButton->setAccessibleName(SpokenCaption(openAddressAction->text()));
    generatorButton->setAccessibleName(SpokenCaption(generatorAction->text()));
    showAllButton->setText(Lang(Text::ShowAllPasswords));
    saveButton->setText(Lang(Text::Save));
}

void VaultWindow::setListHeading(const QString& heading)
{
    listHeading->setText(heading);
    // The list is read by its heading, which tells a search's results from the whole list.
    list->setAccessibleName(SpokenCaption(heading));
}

void VaultWindow::setPanel(int panel, const QString& text)
{
    statusPanels[panel - 1]->setText(text);
}

void VaultWindow::load()
{
    setCaptions();
    // From here on a failing step is passed over and the next one runs.
    const QString config = ConfigFile();
    if (GetIni(Keys::user, Keys::defaultProfile, config).isEmpty()) {
        WriteIni(Keys::user, Keys::current, QStringLiteral("Administrator"), config);
        WriteIni(Keys::user, Keys::defaultProfile, QStringLiteral("Administrator"), config);
    }
    LoadListFile(DataFolder() + QStringLiteral("users.txt"), profileNames);
    WriteIni(Keys::user, Keys::switchTo, QString(), config);
    const QString profile = CurrentProfile();
    setWindowTitle(QStringLiteral("Tolvane - ") + profile);
    setPanel(3, Lang(Text::StatusProfileLabel) + QLatin1Char(' ') + profile);

    // A load that reads no entry keeps the run's vault as the last window left it.
    if (!vault.load(ProfileFile(QStringLiteral("list.dat")), &platform::YieldStep).read)
        return;
    setListHeading(Lang(Text::PasswordList));
    fillWithAllTitles();

    const int rows = list->rowCount();
    setPanel(1, QString::number(rows) + QLatin1Char(' ') + Lang(rows == 1 ? Text::EntryWord : Text::EntriesWord));
    const QString cfg = ProfileFile(QStringLiteral("cfg.txt"));
    passwordBox->setPasswordChar(GetIni(Keys::setts, Keys::option(Option::HidePasswords), cfg) == QLatin1String("1")
            ? QStringLiteral("*")
            : QString());
}

void VaultWindow::save()
{
    boxLockTimer->stop();
    updateCheckTimer->stop();
    WriteIni(Keys::settings, Keys::time, platform::TimeOfDayText() + QLatin1Char(' ') + platform::DateText(),
        ProfileFile(QStringLiteral("time.txt")));
    WriteIni(Keys::user, Keys::tempChangeable2, CurrentProfile(), ConfigFile());
    if (list->rowCount() == 0)
        return; // a search without matches on the screen saves nothing

    const QString file = ProfileFile(QStringLiteral("list.dat"));
    const VaultSave saved = vault.save(file, &platform::YieldStepHoldingInput);
    if (saved == VaultSave::TooLarge) {
        platform::ShowMessage(Lang(Text::VaultTooLarge), platform::MessageIcon::Critical);
    } else if (saved == VaultSave::WriteFailed) {
        // Told before the run ends: which file, and that the changes are lost.
        platform::ShowMessage(Lang(Text::VaultNotSaved) + QLatin1Char('\r') + platform::ToNative(file)
                + QLatin1Char('\r') + Lang(Text::ChangesNotSaved),
            platform::MessageIcon::Critical);
    }
}

int VaultWindow::OuterWidth() const
{
    return PixelsToTwips(width()) + frameWidth;
}

int VaultWindow::OuterHeight() const
{
    return PixelsToTwips(height() - menuBar()->sizeHint().height()) + frameHeight;
}

void VaultWindow::SetOuterSize(int W, int H)
{
    resize(Twips(W - frameWidth), Twips(H - frameHeight) + menuBar()->sizeHint().height());
}

void VaultWindow::layOut()
{
    // Failures are passed over: a minimised or maximised window refuses a new size and stays
    // as it is, and the rules below then run with the size it has.
    const bool sizeCanBeSet = !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
    const QString minimumWidth = QStringLiteral("9270");
    const QString minimumHeight = QStringLiteral("7140");
    int W = OuterWidth();
    if (W <= minimumWidth.toInt() && sizeCanBeSet)
        W = minimumWidth.toInt();
    int H = OuterHeight();
    if (H <= minimumHeight.toInt() && sizeCanBeSet)
        H = minimumHeight.toInt();
    if (W != OuterWidth() || H != OuterHeight())
        SetOuterSize(W, H);
    // The button's own Visible, which stays set while the window is hidden, tells the mode.
    list->resize(list->width(), Twips(!showAllButton->isHidden() ? H - 2350 : H - 2100));
    for (TextBox* b : { titleBox, userNameBox, passphraseBox, passwordBox, urlBox, documentBox })
        b->resize(Twips(W - 4750), b->height());
    noteBox->resize(Twips(W - 4050), Twips(H - 4700));
    headingStrip->resize(Twips(W), headingStrip->height());
    headingLine->resize(Twips(W), headingLine->height());
    saveButton->move(Twips(W - 1400), Twips(H - 1600));
    for (ClickablePicture* image :
        { copyUserNameButton, copyPassphraseButton, copyUrlButton, copyPasswordButton, openDocumentButton })
        image->move(Twips(W - 850), image->y());
    for (ClickablePicture* image : { generatorButton, openAddressButton })
        image->move(Twips(W - 450), image->y());
}

void VaultWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    layOut();
}

void VaultWindow::keepBoxesInStep()
{
    const bool onShow = !titleBox->text().isEmpty();
    saveButton->setEnabled(onShow);
    for (TextBox* b : { userNameBox, passphraseBox, passwordBox, urlBox, documentBox, noteBox })
        b->setLocked(!onShow);
    setPanel(4, titleBox->text());
}

void VaultWindow::startSilentUpdateCheck()
{
    // Its one tick starts the silent update check.
    StartSilentUpdateCheck();
    updateCheckTimer->stop();
}

void VaultWindow::fillWithAllTitles()
{
    list->clearRows();
    for (const Entry& e : vault.all())
        list->addRow(Shown(e.title));
}

void VaultWindow::search()
{
    if (list->rowCount() == 0) {
        platform::ShowMessage(
            Lang(Text::NothingToSearch), platform::MessageIcon::Information); // the list is asked, not the vault
    } else if (searchBox->text().isEmpty()) {
        platform::ShowMessage(Lang(Text::TypeSearchText), platform::MessageIcon::Information);
    } else {
        setListHeading(Lang(Text::SearchResults));
        list->clearRows();
        const QString needle = searchBox->text().toLower();
        for (const Entry& e : vault.all()) {
            if (const std::optional<QString> row = SearchRow(e, needle))
                list->addRow(*row);
        }
        showAllButton->setVisible(true);
        list->move(list->x(), Twips(1200));
    }
    layOut();
}

void VaultWindow::showAllEntries()
{
    setListHeading(Lang(Text::PasswordList));
    list->move(list->x(), Twips(840));
    showAllButton->setVisible(false);
    fillWithAllTitles();
    layOut();
}

void VaultWindow::refresh()
{
    setListHeading(Lang(Text::PasswordList));
    list->move(list->x(), Twips(840));
    layOut();
    showAllButton->setVisible(false);
    fillWithAllTitles();
    layOut();
}

EntryBoxes VaultWindow::boxes() const
{
    return { titleBox, userNameBox, passphraseBox, passwordBox, urlBox, documentBox, noteBox };
}

void VaultWindow::loadSelectedEntry()
{
    const QString title = RowTitle(list->selectedText());
    if (!title.isEmpty()) {
        if (const qsizetype index = vault.lastIndexOf(Stored(title)); index >= 0) {
            working = vault.at(index);
            return;
        }
    }
    platform::Beep();
}

void VaultWindow::showCurrentEntry()
{
    ShowEntry(boxes(), working);
    entryHeading->setText(Shown(working.title));
}

void VaultWindow::showSelectedEntry()
{
    loadSelectedEntry();
    showCurrentEntry();
}

void VaultWindow::saveChangedEntry()
{
    if (vault.saveRunning())
        return;
    const Entry copy = working;
    if (copy.title.isEmpty()) {
        platform::ShowMessage(Lang(Text::TitleEmpty), platform::MessageIcon::Critical);
        return;
    }
    if (!StoreAndTell(vault, copy))
        return;
    fillWithAllTitles(); // the mode stays, the selection is gone
}

void VaultWindow::newEntry()
{
    if (vault.saveRunning())
        return;
    working = Entry();
    QStringList rows;
    for (int i = 0; i < list->rowCount(); ++i)
        rows << list->rowText(i);
    EntryDialog dialog(this, vault, working, rows, [this] { fillWithAllTitles(); });
    dialog.exec();
}

void VaultWindow::deleteSelectedEntry(Text noSelection)
{
    if (vault.saveRunning())
        return;
    const QString title = RowTitle(list->selectedText());
    if (title.isEmpty()) {
        platform::ShowMessage(Lang(noSelection), platform::MessageIcon::Critical);
        return;
    }
    if (platform::ShowMessage(Lang(Text::DeleteEntryQuestion) + QLatin1Char(' ') + title + QLatin1Char(' ')
                + Lang(Text::DeleteEntryQuestionEnd),
            platform::MessageButtons::YesNo | platform::MessageIcon::Question)
        == platform::MessageAnswer::No)
        return;
    const qsizetype index = vault.lastIndexOf(Stored(title));
    if (index < 0)
        return;
    vault.remove(index);
    list->removeRow(list->selectedRow());
    for (TextBox* b : { titleBox, urlBox, passwordBox, titleBox, noteBox, userNameBox, documentBox, passphraseBox })
        b->setText(QString());
}

void VaultWindow::deleteEntryFromMenu()
{
    deleteSelectedEntry(Text::SelectEntryToDelete);
}

void VaultWindow::deleteEntryFromToolbar()
{
    deleteSelectedEntry(Text::SelectEntryFirst);
}

TextBox* VaultWindow::currentFieldBox() const
{
    return currentField;
}

void VaultWindow::copyCurrentField()
{
    if (TextBox* box = currentFieldBox()) {
        QString text = box->text(); // the whole box, whatever is selected
        SetClipboardText(text);
    }
}

void VaultWindow::cutCurrentField()
{
    if (TextBox* box = currentFieldBox())
        box->cut();
}

void VaultWindow::pasteIntoCurrentField()
{
    if (TextBox* box = currentFieldBox())
        box->paste();
}

void VaultWindow::undoCurrentField()
{
    if (TextBox* box = currentFieldBox())
        box->undo();
}

void VaultWindow::clearClipboard()
{
    platform::ClipboardClear();
}

void VaultWindow::copyBoxBeside(TextBox* box)
{
    QString text = box->text(); // a masked password is copied in clear
    SetClipboardText(text);
    // Read from the file at each click, whatever the copy did.
    if (GetIni(Keys::setts, Keys::option(Option::MinimiseAfterCopy), ProfileFile(QStringLiteral("cfg.txt")))
        == QLatin1String("1"))
        setWindowState(windowState() | Qt::WindowMinimized);
}

void VaultWindow::openAddressIfAny()
{
    if (!urlBox->text().isEmpty())
        openAddress();
}

void VaultWindow::openDocumentIfAny()
{
    if (!documentBox->text().isEmpty())
        openDocument();
}

void VaultWindow::openAddress()
{
    QString directory;
    ShellOpen(this, urlBox->text(), QString(), directory, 1, true);
}

void VaultWindow::openDocument()
{
    QString directory = QStringLiteral("C:\\");
    ShellOpen(this, documentBox->text(), QString(), directory, 1, true);
}

void VaultWindow::openGeneratorForPassword()
{
    ShowPasswordGenerator(this, passwordBox);
}

void VaultWindow::openGenerator()
{
    ShowPasswordGenerator(this, nullptr);
}

void VaultWindow::openSettings()
{
    // Beside this window, not modal: the vault keeps working behind it. Its OK loads the vault
    // anew, which must wait for a save.
    if (!vault.saveRunning())
        Q_EMIT settingsRequested();
}

void VaultWindow::showReport()
{
    // The report counts the rows on show but takes the entries from the top of the vault.
    ShowReport(this, vault.all().mid(0, list->rowCount()));
}

void VaultWindow::exportVault()
{
    ExportDialog::Instance(this)->exec();
}

void VaultWindow::importVault()
{
    if (vault.saveRunning())
        return; // its restart would end the run in the middle of the save
    ImportDialog::Instance(this)->exec();
}

void VaultWindow::checkForUpdates()
{
    ShowUpdateCheck(this);
}

void VaultWindow::showAbout()
{
    ShowAbout(this);
}

void VaultWindow::openHomePage()
{
    // The Polish home page, whatever the interface language.
    QString directory;
    ShellOpen(this, ServerAddress() + QStringLiteral("/pl"), QString(), directory, 1, true);
}

void VaultWindow::openForum()
{
    QString directory;
    ShellOpen(this, ServerAddress() + QStringLiteral("/forum"), QString(), directory, 1, true);
}

void VaultWindow::openReadMe()
{
    LinkReadMe();
}

void VaultWindow::openLicence()
{
    LinkLicence();
}

void VaultWindow::ShowTrayMenuInBar()
{
    // The program's title with an access key that no other menu of the bar takes, in any language.
    trayMenu->setTitle(QStringLiteral("T&olvane"));
    menuBar()->addMenu(trayMenu);
}

void VaultWindow::StartUpdateCheckTimer()
{
    updateCheckTimer->start();
}

void VaultWindow::showWindow()
{
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void VaultWindow::closeEvent(QCloseEvent* event)
{
    if (!isUnloaded) {
        Unload(); // the vault is saved; the icon in the notification area is the way back
        // Without a notification area there is no way back: the run ends as the File menu ends it.
        const TrayHost* host = TrayHost::Loaded();
        if (event->spontaneous() && (!host || !host->IconShown()))
            Q_EMIT endRequested();
    }
    event->accept();
}
