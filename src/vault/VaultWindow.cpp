#include "vault/VaultWindow.h"

#include "platform/Clipboard.h"
#include "platform/Cursor.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/AboutDialog.h"
#include "services/Accessibility.h"
#include "services/ClickablePicture.h"
#include "services/LanguageTable.h"
#include "services/ListBox.h"
#include "services/ProductLinks.h"
#include "services/ProgramPictures.h"
#include "services/ShellOpen.h"
#include "services/SilentUpdateCheck.h"
#include "services/SkinnedButton.h"
#include "services/TextBox.h"
#include "services/TrayHost.h"
#include "services/UpdateWindow.h"
#include "services/WindowSlot.h"
#include "settings/SettingsWindow.h"
#include "storage/DataRoot.h"
#include "storage/DataTree.h"
#include "storage/ProfileFiles.h"
#include "storage/VaultFile.h"
#include "tools/ExportDialog.h"
#include "tools/ImportDialog.h"
#include "tools/PasswordGenerator.h"
#include "tools/ReportWindow.h"
#include "vault/ClipboardCopy.h"
#include "vault/EntryBoxes.h"
#include "vault/EntryDialog.h"
#include "vault/EntryTable.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

namespace {

WindowSlot<VaultWindow>& slot()
{
    static WindowSlot<VaultWindow> form;
    return form;
}

// Works out the values of an always-on-top request and returns: the call that would use them
// was never made, so the window stays an ordinary one whatever `s1` says.
void requestAlwaysOnTop(qint16 onTop)
{
    [[maybe_unused]] const int flags = 83;
    [[maybe_unused]] const int position = onTop ? -1 : -2;
}

} // namespace

QString RowTitle(const QString& row)
{
    const qsizetype cut = row.indexOf(QStringLiteral(" ("));
    return cut < 0 ? row : row.left(cut);
}

std::optional<QString> SearchRow(const Entry& e, const QString& needle)
{
    const QString title = Shown(e.title);
    auto holds = [&needle](const QByteArray& field) { return Shown(field).toLower().contains(needle); };
    if (holds(e.title))
        return title;
    if (holds(e.userName))
        return title + QStringLiteral(" (") + Shown(e.userName) + QLatin1Char(')');
    if (holds(e.password))
        return title + QStringLiteral(" (Password: ") + Shown(e.password) + QLatin1Char(')');
    if (holds(e.document))
        return title;
    if (holds(e.url))
        return title + QStringLiteral(" (URL: ") + Shown(e.url) + QLatin1Char(')');
    if (holds(e.passphrase))
        return title + QStringLiteral(" (Passphrase: ") + Shown(e.passphrase) + QLatin1Char(')');
    if (holds(e.note))
        return title;
    return std::nullopt;
}

VaultWindow* VaultWindow::Instance()
{
    return slot().Touch([] { return new VaultWindow; });
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
    form->unloaded = true;
    form->Form_Unload();
    form->hide();
    form->deleteLater();
}

VaultWindow::VaultWindow()
{
    setObjectName(QStringLiteral("VaultWindow"));
    buildMenus();
    buildControls();
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(100);
    connect(Timer1, &QTimer::timeout, this, &VaultWindow::Timer1_Timer);
    Timer1->start();
    Timer3 = new QTimer(this);
    Timer3->setObjectName(QStringLiteral("Timer3"));
    Timer3->setInterval(1000);
    connect(Timer3, &QTimer::timeout, this, &VaultWindow::Timer3_Timer);
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
    mnuFile = menu("mnuFile");
    mnuNew = entry(mnuFile, "mnuNew");
    mnuDelete = entry(mnuFile, "mnuDelete");
    mnuFile->addSeparator();
    mnuImport = entry(mnuFile, "mnuImport");
    mnuExport = entry(mnuFile, "mnuExport");
    mnuFile->addSeparator();
    mnuPrint = entry(mnuFile, "mnuPrint");
    mnuFile->addSeparator();
    mnuClose = entry(mnuFile, "mnuClose");

    mnuEdit = menu("mnuEdit");
    mnuUndo = entry(mnuEdit, "mnuUndo");
    mnuRedo = entry(mnuEdit, "mnuRedo");
    mnuEdit->addSeparator();
    cmdCut = entry(mnuEdit, "cmdCut");
    cmdCopy = entry(mnuEdit, "cmdCopy");
    cmdPaste = entry(mnuEdit, "cmdPaste");
    mnuEdit->addSeparator();
    cmdClearClip = entry(mnuEdit, "cmdClearClip");

    mnuView = menu("mnuView");
    mnuOpenDoc = entry(mnuView, "mnuOpenDoc");
    mnuOpenUrl = entry(mnuView, "mnuOpenUrl");
    mnuView->addSeparator();
    mnuRefresh = entry(mnuView, "mnuRefresh");

    mnuReports = menu("mnuReports");
    mnuReportList = entry(mnuReports, "mnuReportList");

    mnuTools = menu("mnuTools");
    mnuPassGen = entry(mnuTools, "mnuPassGen");
    mnuTools->addSeparator();
    mnuSettings = entry(mnuTools, "mnuSettings");

    mnuHelp = menu("mnuHelp");
    read1 = entry(mnuHelp, "read1");
    lic1 = entry(mnuHelp, "lic1");
    aktul = entry(mnuHelp, "aktul");
    strwww = entry(mnuHelp, "strwww");
    mnuHelp->addSeparator();
    mnuAbout = entry(mnuHelp, "mnuAbout");

    mnuPop = new QMenu(this);
    mnuPop->setObjectName(QStringLiteral("mnuPop"));
    mnuOpen = entry(mnuPop, "mnuOpen");
    mnuPop->addSeparator();
    mnuUpdate = entry(mnuPop, "mnuUpdate");
    mnuPop->addSeparator();
    mnuWWW = entry(mnuPop, "mnuWWW");
    mnuForum = entry(mnuPop, "mnuForum");
    mnuPop->addSeparator();
    mnuAbout2 = entry(mnuPop, "mnuAbout2");
    mnuClose2 = entry(mnuPop, "mnuClose2");

    connect(mnuNew, &QAction::triggered, this, &VaultWindow::mnuNew_Click);
    connect(mnuDelete, &QAction::triggered, this, &VaultWindow::mnuDelete_Click);
    connect(mnuClose, &QAction::triggered, this, &VaultWindow::mnuClose_Click);
    connect(mnuRefresh, &QAction::triggered, this, &VaultWindow::mnuRefresh_Click);
    connect(mnuOpen, &QAction::triggered, this, &VaultWindow::mnuOpen_Click);
    connect(mnuClose2, &QAction::triggered, this, &VaultWindow::mnuClose2_Click);
    connect(cmdCopy, &QAction::triggered, this, &VaultWindow::cmdCopy_Click);
    connect(cmdCut, &QAction::triggered, this, &VaultWindow::cmdCut_Click);
    connect(cmdPaste, &QAction::triggered, this, &VaultWindow::cmdPaste_Click);
    connect(mnuUndo, &QAction::triggered, this, &VaultWindow::mnuUndo_Click);
    connect(mnuRedo, &QAction::triggered, this, &VaultWindow::mnuRedo_Click);
    connect(cmdClearClip, &QAction::triggered, this, &VaultWindow::cmdClearClip_Click);
    connect(mnuOpenUrl, &QAction::triggered, this, &VaultWindow::mnuOpenUrl_Click);
    connect(mnuOpenDoc, &QAction::triggered, this, &VaultWindow::mnuOpenDoc_Click);
    connect(mnuPassGen, &QAction::triggered, this, &VaultWindow::mnuPassGen_Click);
    connect(mnuSettings, &QAction::triggered, this, &VaultWindow::mnuSettings_Click);
    connect(mnuReportList, &QAction::triggered, this, &VaultWindow::mnuReportList_Click);
    connect(mnuPrint, &QAction::triggered, this, &VaultWindow::mnuReportList_Click);
    connect(mnuExport, &QAction::triggered, this, &VaultWindow::mnuExport_Click);
    connect(mnuImport, &QAction::triggered, this, &VaultWindow::mnuImport_Click);
    connect(aktul, &QAction::triggered, this, &VaultWindow::aktul_Click);
    connect(mnuUpdate, &QAction::triggered, this, &VaultWindow::aktul_Click);
    connect(mnuAbout, &QAction::triggered, this, &VaultWindow::mnuAbout_Click);
    connect(mnuAbout2, &QAction::triggered, this, &VaultWindow::mnuAbout_Click);
    connect(mnuWWW, &QAction::triggered, this, &VaultWindow::mnuWWW_Click);
    connect(strwww, &QAction::triggered, this, &VaultWindow::strwww_Click);
    connect(mnuForum, &QAction::triggered, this, &VaultWindow::mnuForum_Click);
    connect(read1, &QAction::triggered, this, &VaultWindow::read1_Click);
    connect(lic1, &QAction::triggered, this, &VaultWindow::lic1_Click);
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
    Image8 = label("Image8");
    Image8->setAutoFillBackground(true);
    Image8->setBackgroundRole(QPalette::AlternateBase);
    PlaceTwips(Image8, 0, 360, 9270, 330);
    Line1 = Named(new QFrame(client), "Line1");
    Line1->setFrameShape(QFrame::HLine);
    Line1->setFrameShadow(QFrame::Plain);
    Line1->setForegroundRole(QPalette::Mid);
    PlaceTwips(Line1, 0, 675, 9270, 15);

    Label2 = label("Label2");
    PlaceTwips(Label2, 120, 405, 2415, 330);
    Command2 = button("Command2");
    PlaceTwips(Command2, 120, 760, 2415, 375);
    Command2->setVisible(false);
    connect(Command2, &QPushButton::clicked, this, &VaultWindow::Command2_Click);
    lstResults = Named(new ListBox(true, client), "lstResults");
    PlaceTwips(lstResults, 120, 840, 2415, 4785);
    connect(lstResults, &ListBox::Click, this, &VaultWindow::lstResults_Click);

    Label1 = label("Label1");
    Label1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    PlaceTwips(Label1, 4080, 0, 1000, 330);
    txtSearch = box("txtSearch", TextBox::SingleLine);
    Label1->setBuddy(txtSearch);
    PlaceTwips(txtSearch, 5160, 20, 2400, 300);
    Command1 = PlacedSkinnedButton(client, "Command1", SearchPicture(), 7620, 0, 615);
    connect(Command1, &SkinnedButton::Click, this, &VaultWindow::Command1_Click);

    Label3 = label("Label3");
    MakeBold(Label3);
    PlaceTwips(Label3, 2640, 405, 4335, 330);

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
        { &lblViewID, "lblViewID", 2640, &txtDetails, "txtDetails", 840, 330, TextBox::SingleLine },
        { &lblFullName, "lblFullName", 2640, &txtFullName, "txtFullName", 1200, 330, TextBox::SingleLine },
        { &lblPhone, "lblPhone", 2520, &txtPhone, "txtPhone", 1560, 330, TextBox::SingleLine },
        { &lblAge, "lblAge", 2640, &txtAge, "txtAge", 1920, 330, TextBox::SingleLine },
        { &lblAddress, "lblAddress", 2640, &txtAddress, "txtAddress", 2280, 330, TextBox::SingleLine },
        { &lblInterests, "lblInterests", 2640, &txtInterests, "txtInterests", 2640, 330, TextBox::MultiLine },
        { &lblExtra, "lblExtra", 2640, &txtExtra, "txtExtra", 3000, 2355, TextBox::MultiLine },
    };
    for (const Field& f : fields) {
        *f.caption = label(f.captionName);
        PlaceTwips(*f.caption, f.captionLeft, f.top + 45, 3840 - f.captionLeft - 60, 285);
        *f.control = box(f.name, f.kind);
        PlaceTwips(*f.control, 3840, f.top, 4335, f.height);
        (*f.caption)->setBuddy(*f.control);
    }
    txtDetails->SetLocked(true);
    // Grey as a read-only field: a line edit paints its ground in the palette's Base colour.
    QPalette readOnly = txtDetails->Editor()->palette();
    readOnly.setColor(QPalette::Base, readOnly.color(QPalette::Window));
    txtDetails->Editor()->setPalette(readOnly);
    txtInterests->SetScrollBars(false, true);
    txtExtra->SetScrollBars(true, true);
    txtExtra->resize(Twips(5055), txtExtra->height());

    CarryIntoCurrentEntry(this, Boxes());

    // Only a click into a box makes it the current field: Tab does not, and nothing clears it.
    for (TextBox* b : { txtFullName, txtPhone, txtAge, txtAddress, txtInterests, txtExtra })
        connect(b, &TextBox::Click, this, [this, b] { currentField = b->objectName(); });

    buildImages(client);

    cmdSaveChanges = button("cmdSaveChanges");
    PlaceTwips(cmdSaveChanges, 7680, 5400, 1215, 375);
    connect(cmdSaveChanges, &QPushButton::clicked, this, &VaultWindow::cmdSaveChanges_Click);

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
        { &Command9, "Command9", 120, &NewEntryPicture, &VaultWindow::Command9_Click },
        { &Command10, "Command10", 480, &DeleteEntryPicture, &VaultWindow::Command10_Click },
        { &Command11, "Command11", 900, &PrintPicture, &VaultWindow::mnuReportList_Click },
        { &Command12, "Command12", 1260, &ReportPicture, &VaultWindow::mnuReportList_Click },
        { &Command13, "Command13", 1690, &CopyPicture, &VaultWindow::Command13_Click },
        { &Command14, "Command14", 2060, &CutPicture, &VaultWindow::Command14_Click },
        { &Command15, "Command15", 2420, &PastePicture, &VaultWindow::Command15_Click },
        { &Command16, "Command16", 2820, &UndoPicture, &VaultWindow::Command16_Click },
        { &Command17, "Command17", 3180, &RedoPicture, &VaultWindow::Command17_Click },
        { &Command18, "Command18", 3620, &SettingsPicture, &VaultWindow::Command18_Click },
    };
    for (const Tool& t : tools) {
        *t.control = PlacedSkinnedButton(client, t.name, t.picture(), t.left, 0, 375);
        connect(*t.control, &SkinnedButton::Click, this, t.click);
    }

    // The Tab key as the eye goes: the search box at the top, the list, then each box with the
    // pictures beside it.
    SetTabOrder({ txtSearch, Command2, lstResults, txtDetails, txtFullName, Image1, txtPhone, Image2, txtAge, Image4,
        Image6, txtAddress, Image3, Image5, txtInterests, Image7, txtExtra, cmdSaveChanges });

    const int stretches[4] = { 1, 1, 2, 2 };
    for (int i = 0; i < 4; ++i) {
        StatusBar1Panel[i] = new QLabel(this);
        StatusBar1Panel[i]->setObjectName(QStringLiteral("StatusBar1Panel%1").arg(i + 1));
        statusBar()->addWidget(StatusBar1Panel[i], stretches[i]);
    }
    statusBar()->setSizeGripEnabled(true);
}

void VaultWindow::buildImages(QWidget* client)
{
    struct Picture
    {
        ClickablePicture** control;
        const char* name;
        int left;
        int top;
        QIcon (*picture)();
        void (VaultWindow::*click)();
    };
    const Picture pictures[] = {
        { &Image1, "Image1", 8280, 1250, &CopyPicture, &VaultWindow::Image1_Click },
        { &Image2, "Image2", 8280, 1610, &CopyPicture, &VaultWindow::Image2_Click },
        { &Image4, "Image4", 8280, 1970, &CopyPicture, &VaultWindow::Image4_Click },
        { &Image3, "Image3", 8280, 2320, &CopyPicture, &VaultWindow::Image3_Click },
        { &Image7, "Image7", 8280, 2690, &DocumentPicture, &VaultWindow::Image7_Click },
        { &Image5, "Image5", 8640, 2320, &WebPicture, &VaultWindow::Image5_Click },
        { &Image6, "Image6", 8640, 1970, &GeneratorPicture, &VaultWindow::Image6_Click },
    };
    for (const Picture& p : pictures) {
        auto* image = new ClickablePicture(client);
        image->setObjectName(QLatin1String(p.name));
        PlaceTwips(image, p.left, p.top, 240, 240);
        image->SetPicture(p.picture());
        image->SetTabStop(true);
        connect(image, &ClickablePicture::Click, this, p.click);
        connect(image, &ClickablePicture::MouseMove, this, [image] { platform::SetCursor(image, platform::IDC_HAND); });
        *p.control = image;
    }
}

void VaultWindow::setCaptions()
{
    const std::pair<QMenu*, int> menus[] = {
        { mnuFile, 206 },
        { mnuEdit, 213 },
        { mnuView, 220 },
        { mnuReports, 224 },
        { mnuTools, 226 },
        { mnuHelp, 229 },
    };
    for (const auto& [menu, slot] : menus)
        menu->setTitle(Lang(slot));
    const std::pair<QAction*, int> entries[] = {
        { mnuNew, 207 },
        { mnuDelete, 208 },
        { mnuImport, 209 },
        { mnuExport, 210 },
        { mnuPrint, 211 },
        { mnuClose, 212 },
        { mnuUndo, 214 },
        { mnuRedo, 215 },
        { cmdCut, 216 },
        { cmdCopy, 217 },
        { cmdPaste, 218 },
        { cmdClearClip, 219 },
        { mnuOpenDoc, 221 },
        { mnuOpenUrl, 222 },
        { mnuRefresh, 223 },
        { mnuReportList, 225 },
        { mnuPassGen, 227 },
        { mnuSettings, 228 },
        { read1, 232 },
        { lic1, 233 },
        { aktul, 234 },
        { strwww, 235 },
        { mnuAbout, 236 },
        { mnuOpen, 237 },
        { mnuUpdate, 234 },
        { mnuWWW, 235 },
        { mnuForum, 238 },
        { mnuAbout2, 236 },
        { mnuClose2, 212 },
    };
    for (const auto& [action, slot] : entries)
        action->setText(Lang(slot));
    Label1->setText(Lang(239));
    // The toolbar has pictures only; assistive tools name each button after its menu entry.
    const std::pair<SkinnedButton*, QAction*> tools[] = {
        { Command9, mnuNew },
        { Command10, mnuDelete },
        { Command11, mnuPrint },
        { Command12, mnuReportList },
        { Command13, cmdCopy },
        { Command14, cmdCut },
        { Command15, cmdPaste },
        { Command16, mnuUndo },
        { Command17, mnuRedo },
        { Command18, mnuSettings },
    };
    for (const auto& [tool, action] : tools)
        tool->setAccessibleName(action->iconText());
    Command1->setAccessibleName(SpokenCaption(Label1->text()));
    setListHeading(Lang(201));
    SetEntryCaptions({ lblViewID, lblFullName, lblPhone, lblAge, lblAddress, lblInterests, lblExtra });
    // The pictures beside the boxes, named by what they do and the box they act on.
    for (const auto& [image, caption] : { std::pair { Image1, lblFullName }, std::pair { Image2, lblPhone },
             std::pair { Image4, lblAge }, std::pair { Image3, lblAddress } })
        image->setAccessibleName(ActionOnBox(cmdCopy->text(), caption->text()));
    Image7->setAccessibleName(SpokenCaption(mnuOpenDoc->text()));
    Image5->setAccessibleName(SpokenCaption(mnuOpenUrl->text()));
    Image6->setAccessibleName(SpokenCaption(mnuPassGen->text()));
    Command2->setText(Lang(240));
    cmdSaveChanges->setText(Lang(248));
}

void VaultWindow::setListHeading(const QString& heading)
{
    Label2->setText(heading);
    // The list is read by its heading, which tells a search's results from the whole list.
    lstResults->setAccessibleName(SpokenCaption(heading));
}

void VaultWindow::setPanel(int panel, const QString& text)
{
    StatusBar1Panel[panel - 1]->setText(text);
}

void VaultWindow::Form_Load()
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
    setPanel(3, Lang(202) + QLatin1Char(' ') + profile);

    const VaultLoad load = LoadVault(ProfileFile(QStringLiteral("list.dat")), &platform::YieldStep);
    if (!load.read)
        return;
    // "1 To 0" is refused, so an empty vault leaves the table as it was.
    entryTable.ReDim(1, static_cast<int>(load.entries.size()));
    for (int i = 1; i <= load.entries.size() && entryTable.Has(i); ++i)
        entryTable[i] = load.entries.at(i - 1);
    setListHeading(Lang(201));
    FillWithAllTitles();

    const int rows = lstResults->ListCount();
    setPanel(1, QString::number(rows) + QLatin1Char(' ') + Lang(rows == 1 ? 203 : 204));
    const QString cfg = ProfileFile(QStringLiteral("cfg.txt"));
    if (GetIni(Keys::setts, Keys::option(1), cfg) == QLatin1String("1"))
        requestAlwaysOnTop(-1);
    txtAge->SetPasswordChar(
        GetIni(Keys::setts, Keys::option(5), cfg) == QLatin1String("1") ? QStringLiteral("*") : QString());
}

void VaultWindow::Form_Unload()
{
    Timer1->stop();
    Timer3->stop();
    WriteIni(Keys::settings, Keys::time, platform::TimeOfDayText() + QLatin1Char(' ') + platform::DateText(),
        ProfileFile(QStringLiteral("time.txt")));
    WriteIni(Keys::user, Keys::tempChangeable2, CurrentProfile(), ConfigFile());
    if (lstResults->ListCount() == 0)
        return; // a search without matches on the screen saves nothing

    QList<Entry> entries;
    for (int i = 1; i <= entryTable.UBound(); ++i)
        entries.append(entryTable[i]);
    const VaultSave saved = SaveVault(ProfileFile(QStringLiteral("list.dat")), entries, &platform::YieldStep);
    // The escaping of the save changes the values in the table too.
    for (int i = 1; i <= entryTable.UBound(); ++i)
        entryTable[i] = entries.at(i - 1);
    if (saved == VaultSave::TooLarge)
        platform::MsgBox(Lang(900), 16);
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

void VaultWindow::Form_Resize()
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
    lstResults->resize(lstResults->width(), Twips(!Command2->isHidden() ? H - 2350 : H - 2100));
    for (TextBox* b : { txtDetails, txtFullName, txtPhone, txtAge, txtAddress, txtInterests })
        b->resize(Twips(W - 4750), b->height());
    txtExtra->resize(Twips(W - 4050), Twips(H - 4700));
    Image8->resize(Twips(W), Image8->height());
    Line1->resize(Twips(W), Line1->height());
    cmdSaveChanges->move(Twips(W - 1400), Twips(H - 1600));
    for (ClickablePicture* image : { Image1, Image2, Image3, Image4, Image7 })
        image->move(Twips(W - 850), image->y());
    for (ClickablePicture* image : { Image6, Image5 })
        image->move(Twips(W - 450), image->y());
}

void VaultWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void VaultWindow::Timer1_Timer()
{
    const bool onShow = !txtDetails->Text().isEmpty();
    cmdSaveChanges->setEnabled(onShow);
    for (TextBox* b : { txtFullName, txtPhone, txtAge, txtAddress, txtInterests, txtExtra })
        b->SetLocked(!onShow);
    setPanel(4, txtDetails->Text());
}

void VaultWindow::Timer3_Timer()
{
    // Its one tick starts the silent update check.
    StartSilentUpdateCheck();
    Timer3->stop();
}

void VaultWindow::FillWithAllTitles()
{
    lstResults->Clear();
    for (int i = 1; i <= entryTable.UBound(); ++i)
        lstResults->AddItem(Shown(entryTable[i].title));
}

void VaultWindow::Command1_Click()
{
    if (lstResults->ListCount() == 0) {
        platform::MsgBox(Lang(195), 64); // the list is asked, not the table
    } else if (txtSearch->Text().isEmpty()) {
        platform::MsgBox(Lang(196), 64);
    } else {
        setListHeading(Lang(197));
        lstResults->Clear();
        const QString needle = txtSearch->Text().toLower();
        for (int i = 1; i <= entryTable.UBound(); ++i) {
            if (const std::optional<QString> row = SearchRow(entryTable[i], needle))
                lstResults->AddItem(*row);
        }
        Command2->setVisible(true);
        lstResults->move(lstResults->x(), Twips(1200));
    }
    Form_Resize();
}

void VaultWindow::Command2_Click()
{
    setListHeading(Lang(201));
    lstResults->move(lstResults->x(), Twips(840));
    Command2->setVisible(false);
    FillWithAllTitles();
    Form_Resize();
}

void VaultWindow::mnuRefresh_Click()
{
    setListHeading(Lang(201));
    lstResults->move(lstResults->x(), Twips(840));
    Form_Resize();
    Command2->setVisible(false);
    FillWithAllTitles();
    Form_Resize();
}

EntryBoxes VaultWindow::Boxes() const
{
    return { txtDetails, txtFullName, txtPhone, txtAge, txtAddress, txtInterests, txtExtra };
}

void VaultWindow::LoadSelectedEntry()
{
    const QString title = RowTitle(lstResults->Text());
    if (!title.isEmpty()) {
        const qint16 index = FindEntryByTitle(Stored(title));
        if (index != 0) {
            currentEntry = entryTable[index];
            return;
        }
    }
    platform::Beep();
}

void VaultWindow::showCurrentEntry()
{
    ShowEntry(Boxes(), currentEntry);
    Label3->setText(Shown(currentEntry.title));
}

void VaultWindow::lstResults_Click()
{
    LoadSelectedEntry();
    showCurrentEntry();
}

void VaultWindow::cmdSaveChanges_Click()
{
    const Entry copy = currentEntry;
    if (copy.title.isEmpty()) {
        platform::MsgBox(Lang(192), 16);
        return;
    }
    StoreEntry(copy);
    platform::MsgBox(Lang(193), 64);
    FillWithAllTitles(); // the mode stays, the selection is gone
}

void VaultWindow::mnuNew_Click()
{
    currentEntry = Entry();
    auto* view = new EntryDialog(this);
    view->txtDetails->SetLocked(false);
    view->exec();
    delete view;
}

void VaultWindow::Command9_Click()
{
    mnuNew_Click();
}

void VaultWindow::deleteSelected(int noSelectionSlot)
{
    const QString title = RowTitle(lstResults->Text());
    if (title.isEmpty()) {
        platform::MsgBox(Lang(noSelectionSlot), 16);
        return;
    }
    if (platform::MsgBox(Lang(199) + QLatin1Char(' ') + title + QLatin1Char(' ') + Lang(200), 32 + 4) == platform::IDNO)
        return;
    const qint16 index = FindEntryByTitle(Stored(title));
    if (index == 0)
        return;
    RemoveEntry(entryTable, index);
    vaultDirty = true;
    lstResults->RemoveItem(lstResults->ListIndex());
    for (TextBox* b : { txtDetails, txtAddress, txtAge, txtDetails, txtExtra, txtFullName, txtInterests, txtPhone })
        b->SetText(QString());
}

void VaultWindow::mnuDelete_Click()
{
    deleteSelected(205);
}

void VaultWindow::Command10_Click()
{
    deleteSelected(198);
}

TextBox* VaultWindow::CurrentField() const
{
    const QString& field = currentField;
    TextBox* box = nullptr;
    if (field == QLatin1String("txtFullName"))
        box = txtFullName;
    if (field == QLatin1String("txtPhone"))
        box = txtPhone;
    if (field == QLatin1String("txtAge"))
        box = txtAge;
    if (field == QLatin1String("txtAddress"))
        box = txtAddress;
    if (field == QLatin1String("txtInterests"))
        box = txtInterests;
    if (field == QLatin1String("txtExtra"))
        box = txtExtra;
    return box;
}

void VaultWindow::cmdCopy_Click()
{
    if (TextBox* box = CurrentField()) {
        QString text = box->Text(); // the whole box, whatever is selected
        SetClipboardText(text);
    }
}

void VaultWindow::cmdCut_Click()
{
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_CUT);
}

void VaultWindow::cmdPaste_Click()
{
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_PASTE);
}

void VaultWindow::mnuUndo_Click()
{
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_UNDO);
}

void VaultWindow::mnuRedo_Click()
{
    // The edit box has one step of undo: a second undo is the redo.
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_UNDO);
}

void VaultWindow::cmdClearClip_Click()
{
    platform::ClipboardClear();
}

void VaultWindow::Command13_Click()
{
    cmdCopy_Click();
}

void VaultWindow::Command14_Click()
{
    cmdCut_Click();
}

void VaultWindow::Command15_Click()
{
    cmdPaste_Click();
}

void VaultWindow::Command16_Click()
{
    mnuUndo_Click();
}

void VaultWindow::Command17_Click()
{
    mnuRedo_Click();
}

void VaultWindow::copyImage(TextBox* box)
{
    QString text = box->Text(); // a masked password is copied in clear
    SetClipboardText(text);
    // Read from the file at each click, whatever the copy did.
    if (GetIni(Keys::setts, Keys::option(4), ProfileFile(QStringLiteral("cfg.txt"))) == QLatin1String("1"))
        setWindowState(windowState() | Qt::WindowMinimized);
}

void VaultWindow::Image1_Click()
{
    copyImage(txtFullName);
}

void VaultWindow::Image2_Click()
{
    copyImage(txtPhone);
}

void VaultWindow::Image3_Click()
{
    copyImage(txtAddress);
}

void VaultWindow::Image4_Click()
{
    copyImage(txtAge);
}

void VaultWindow::Image5_Click()
{
    if (!txtAddress->Text().isEmpty())
        mnuOpenUrl_Click();
}

void VaultWindow::Image7_Click()
{
    if (!txtInterests->Text().isEmpty())
        mnuOpenDoc_Click();
}

void VaultWindow::mnuOpenUrl_Click()
{
    QString directory;
    ShellOpen(this, txtAddress->Text(), QString(), directory, 1, true);
}

void VaultWindow::mnuOpenDoc_Click()
{
    QString directory = QStringLiteral("C:\\");
    ShellOpen(this, txtInterests->Text(), QString(), directory, 1, true);
}

void VaultWindow::Image6_Click()
{
    ShowPasswordGenerator(this, QStringLiteral("1"));
}

void VaultWindow::mnuPassGen_Click()
{
    ShowPasswordGenerator(this, QStringLiteral("0"));
}

void VaultWindow::mnuSettings_Click()
{
    // Beside this window, not modal: the vault keeps working behind it.
    SettingsWindow::Instance()->show();
}

void VaultWindow::Command18_Click()
{
    mnuSettings_Click();
}

void VaultWindow::mnuReportList_Click()
{
    ShowReport(this);
}

void VaultWindow::mnuExport_Click()
{
    ExportDialog::Instance(this)->exec();
}

void VaultWindow::mnuImport_Click()
{
    ImportDialog::Instance(this)->exec();
}

void VaultWindow::aktul_Click()
{
    ShowUpdateCheck(this);
}

void VaultWindow::mnuAbout_Click()
{
    ShowAbout(this);
}

void VaultWindow::mnuWWW_Click()
{
    // The Polish home page, whatever the interface language.
    QString directory;
    ShellOpen(this, ServerAddress() + QStringLiteral("/pl"), QString(), directory, 1, true);
}

void VaultWindow::strwww_Click()
{
    mnuWWW_Click();
}

void VaultWindow::mnuForum_Click()
{
    QString directory;
    ShellOpen(this, ServerAddress() + QStringLiteral("/forum"), QString(), directory, 1, true);
}

void VaultWindow::read1_Click()
{
    LinkReadMe();
}

void VaultWindow::lic1_Click()
{
    LinkLicence();
}

void VaultWindow::EndRun()
{
    Unload();
    TrayHost::Unload();
    platform::EndProcess(0);
}

void VaultWindow::mnuClose_Click()
{
    EndRun();
}

void VaultWindow::mnuClose2_Click()
{
    mnuClose_Click();
}

void VaultWindow::mnuOpen_Click()
{
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void VaultWindow::closeEvent(QCloseEvent* event)
{
    if (!unloaded) {
        Unload(); // the vault is saved; the icon in the notification area is the way back
        // Without a notification area there is no way back: the run ends as the File menu ends it.
        const TrayHost* host = TrayHost::Loaded();
        if (event->spontaneous() && (!host || !host->IconShown()))
            EndRun();
    }
    event->accept();
}
