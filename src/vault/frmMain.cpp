#include "vault/frmMain.h"

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
#include "settings/frmSettings.h"
#include "storage/DataRoot.h"
#include "storage/DataTree.h"
#include "storage/ProfileFiles.h"
#include "storage/VaultFile.h"
#include "tools/frmExport.h"
#include "tools/frmImport.h"
#include "tools/frmPwdGen.h"
#include "tools/frmRaport.h"
#include "vault/EntryBoxes.h"
#include "vault/frmView.h"
#include "vault/modClipboard.h"
#include "vault/modRoster.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

namespace {

WindowSlot<frmMain>& slot()
{
    static WindowSlot<frmMain> form;
    return form;
}

// Works out the values of an always-on-top request and returns: the call that would use them
// was never made, so the window stays an ordinary one whatever `s1` says.
void modFormOnTop(qint16 onTop)
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

frmMain* frmMain::Instance()
{
    return slot().Touch([] { return new frmMain; });
}

frmMain* frmMain::Loaded()
{
    return slot().Loaded();
}

void frmMain::Unload()
{
    frmMain* form = slot().Take();
    if (!form)
        return;
    form->unloaded = true;
    form->Form_Unload();
    form->hide();
    form->deleteLater();
}

frmMain::frmMain()
{
    setObjectName(QStringLiteral("frmMain"));
    buildMenus();
    buildControls();
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(100);
    connect(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    Timer1->start();
    Timer3 = new QTimer(this);
    Timer3->setObjectName(QStringLiteral("Timer3"));
    Timer3->setInterval(1000);
    connect(Timer3, &QTimer::timeout, this, &frmMain::Timer3_Timer);
    // The design client area is 9030 by 6300 twips below the menu bar.
    SetOuterSize(9030 + frameWidth, 6300 + frameHeight);
}

void frmMain::buildMenus()
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

    connect(mnuNew, &QAction::triggered, this, &frmMain::mnuNew_Click);
    connect(mnuDelete, &QAction::triggered, this, &frmMain::mnuDelete_Click);
    connect(mnuClose, &QAction::triggered, this, &frmMain::mnuClose_Click);
    connect(mnuRefresh, &QAction::triggered, this, &frmMain::mnuRefresh_Click);
    connect(mnuOpen, &QAction::triggered, this, &frmMain::mnuOpen_Click);
    connect(mnuClose2, &QAction::triggered, this, &frmMain::mnuClose2_Click);
    connect(cmdCopy, &QAction::triggered, this, &frmMain::cmdCopy_Click);
    connect(cmdCut, &QAction::triggered, this, &frmMain::cmdCut_Click);
    connect(cmdPaste, &QAction::triggered, this, &frmMain::cmdPaste_Click);
    connect(mnuUndo, &QAction::triggered, this, &frmMain::mnuUndo_Click);
    connect(mnuRedo, &QAction::triggered, this, &frmMain::mnuRedo_Click);
    connect(cmdClearClip, &QAction::triggered, this, &frmMain::cmdClearClip_Click);
    connect(mnuOpenUrl, &QAction::triggered, this, &frmMain::mnuOpenUrl_Click);
    connect(mnuOpenDoc, &QAction::triggered, this, &frmMain::mnuOpenDoc_Click);
    connect(mnuPassGen, &QAction::triggered, this, &frmMain::mnuPassGen_Click);
    connect(mnuSettings, &QAction::triggered, this, &frmMain::mnuSettings_Click);
    connect(mnuReportList, &QAction::triggered, this, &frmMain::mnuReportList_Click);
    connect(mnuPrint, &QAction::triggered, this, &frmMain::mnuReportList_Click);
    connect(mnuExport, &QAction::triggered, this, &frmMain::mnuExport_Click);
    connect(mnuImport, &QAction::triggered, this, &frmMain::mnuImport_Click);
    connect(aktul, &QAction::triggered, this, &frmMain::aktul_Click);
    connect(mnuUpdate, &QAction::triggered, this, &frmMain::aktul_Click);
    connect(mnuAbout, &QAction::triggered, this, &frmMain::mnuAbout_Click);
    connect(mnuAbout2, &QAction::triggered, this, &frmMain::mnuAbout_Click);
    connect(mnuWWW, &QAction::triggered, this, &frmMain::mnuWWW_Click);
    connect(strwww, &QAction::triggered, this, &frmMain::strwww_Click);
    connect(mnuForum, &QAction::triggered, this, &frmMain::mnuForum_Click);
    connect(read1, &QAction::triggered, this, &frmMain::read1_Click);
    connect(lic1, &QAction::triggered, this, &frmMain::lic1_Click);
}

void frmMain::buildControls()
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
    connect(Command2, &QPushButton::clicked, this, &frmMain::Command2_Click);
    lstResults = Named(new ListBox(true, client), "lstResults");
    PlaceTwips(lstResults, 120, 840, 2415, 4785);
    connect(lstResults, &ListBox::Click, this, &frmMain::lstResults_Click);

    Label1 = label("Label1");
    Label1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    PlaceTwips(Label1, 4080, 0, 1000, 330);
    txtSearch = box("txtSearch", TextBox::SingleLine);
    Label1->setBuddy(txtSearch);
    PlaceTwips(txtSearch, 5160, 20, 2400, 300);
    Command1 = PlacedSkinnedButton(client, "Command1", SearchPicture(), 7620, 0, 615);
    connect(Command1, &SkinnedButton::Click, this, &frmMain::Command1_Click);

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
    connect(cmdSaveChanges, &QPushButton::clicked, this, &frmMain::cmdSaveChanges_Click);

    // The toolbar: skinned buttons with pictures and no text, at their design Left. They react
    // to the mouse only; the Tab key passes them by.
    struct Tool
    {
        SkinnedButton** control;
        const char* name;
        int left;
        QIcon (*picture)();
        void (frmMain::*click)();
    };
    const Tool tools[] = {
        { &Command9, "Command9", 120, &NewEntryPicture, &frmMain::Command9_Click },
        { &Command10, "Command10", 480, &DeleteEntryPicture, &frmMain::Command10_Click },
        { &Command11, "Command11", 900, &PrintPicture, &frmMain::mnuReportList_Click },
        { &Command12, "Command12", 1260, &ReportPicture, &frmMain::mnuReportList_Click },
        { &Command13, "Command13", 1690, &CopyPicture, &frmMain::Command13_Click },
        { &Command14, "Command14", 2060, &CutPicture, &frmMain::Command14_Click },
        { &Command15, "Command15", 2420, &PastePicture, &frmMain::Command15_Click },
        { &Command16, "Command16", 2820, &UndoPicture, &frmMain::Command16_Click },
        { &Command17, "Command17", 3180, &RedoPicture, &frmMain::Command17_Click },
        { &Command18, "Command18", 3620, &SettingsPicture, &frmMain::Command18_Click },
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

void frmMain::buildImages(QWidget* client)
{
    struct Picture
    {
        ClickablePicture** control;
        const char* name;
        int left;
        int top;
        QIcon (*picture)();
        void (frmMain::*click)();
    };
    const Picture pictures[] = {
        { &Image1, "Image1", 8280, 1250, &CopyPicture, &frmMain::Image1_Click },
        { &Image2, "Image2", 8280, 1610, &CopyPicture, &frmMain::Image2_Click },
        { &Image4, "Image4", 8280, 1970, &CopyPicture, &frmMain::Image4_Click },
        { &Image3, "Image3", 8280, 2320, &CopyPicture, &frmMain::Image3_Click },
        { &Image7, "Image7", 8280, 2690, &DocumentPicture, &frmMain::Image7_Click },
        { &Image5, "Image5", 8640, 2320, &WebPicture, &frmMain::Image5_Click },
        { &Image6, "Image6", 8640, 1970, &GeneratorPicture, &frmMain::Image6_Click },
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

void frmMain::setCaptions()
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

void frmMain::setListHeading(const QString& heading)
{
    Label2->setText(heading);
    // The list is read by its heading, which tells a search's results from the whole list.
    lstResults->setAccessibleName(SpokenCaption(heading));
}

void frmMain::setPanel(int panel, const QString& text)
{
    StatusBar1Panel[panel - 1]->setText(text);
}

void frmMain::Form_Load()
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
        modFormOnTop(-1);
    txtAge->SetPasswordChar(
        GetIni(Keys::setts, Keys::option(5), cfg) == QLatin1String("1") ? QStringLiteral("*") : QString());
}

void frmMain::Form_Unload()
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

int frmMain::OuterWidth() const
{
    return PixelsToTwips(width()) + frameWidth;
}

int frmMain::OuterHeight() const
{
    return PixelsToTwips(height() - menuBar()->sizeHint().height()) + frameHeight;
}

void frmMain::SetOuterSize(int W, int H)
{
    resize(Twips(W - frameWidth), Twips(H - frameHeight) + menuBar()->sizeHint().height());
}

void frmMain::Form_Resize()
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

void frmMain::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void frmMain::Timer1_Timer()
{
    const bool onShow = !txtDetails->Text().isEmpty();
    cmdSaveChanges->setEnabled(onShow);
    for (TextBox* b : { txtFullName, txtPhone, txtAge, txtAddress, txtInterests, txtExtra })
        b->SetLocked(!onShow);
    setPanel(4, txtDetails->Text());
}

void frmMain::Timer3_Timer()
{
    // Its one tick starts the silent update check.
    StartSilentUpdateCheck();
    Timer3->stop();
}

void frmMain::FillWithAllTitles()
{
    lstResults->Clear();
    for (int i = 1; i <= entryTable.UBound(); ++i)
        lstResults->AddItem(Shown(entryTable[i].title));
}

void frmMain::Command1_Click()
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

void frmMain::Command2_Click()
{
    setListHeading(Lang(201));
    lstResults->move(lstResults->x(), Twips(840));
    Command2->setVisible(false);
    FillWithAllTitles();
    Form_Resize();
}

void frmMain::mnuRefresh_Click()
{
    setListHeading(Lang(201));
    lstResults->move(lstResults->x(), Twips(840));
    Form_Resize();
    Command2->setVisible(false);
    FillWithAllTitles();
    Form_Resize();
}

EntryBoxes frmMain::Boxes() const
{
    return { txtDetails, txtFullName, txtPhone, txtAge, txtAddress, txtInterests, txtExtra };
}

void frmMain::LoadSelectedEntry()
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

void frmMain::showCurrentEntry()
{
    ShowEntry(Boxes(), currentEntry);
    Label3->setText(Shown(currentEntry.title));
}

void frmMain::lstResults_Click()
{
    LoadSelectedEntry();
    showCurrentEntry();
}

void frmMain::cmdSaveChanges_Click()
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

void frmMain::mnuNew_Click()
{
    currentEntry = Entry();
    auto* view = new frmView(this);
    view->txtDetails->SetLocked(false);
    view->exec();
    delete view;
}

void frmMain::Command9_Click()
{
    mnuNew_Click();
}

void frmMain::deleteSelected(int noSelectionSlot)
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

void frmMain::mnuDelete_Click()
{
    deleteSelected(205);
}

void frmMain::Command10_Click()
{
    deleteSelected(198);
}

TextBox* frmMain::CurrentField() const
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

void frmMain::cmdCopy_Click()
{
    if (TextBox* box = CurrentField()) {
        QString text = box->Text(); // the whole box, whatever is selected
        SetClipboardText(text);
    }
}

void frmMain::cmdCut_Click()
{
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_CUT);
}

void frmMain::cmdPaste_Click()
{
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_PASTE);
}

void frmMain::mnuUndo_Click()
{
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_UNDO);
}

void frmMain::mnuRedo_Click()
{
    // The edit box has one step of undo: a second undo is the redo.
    if (TextBox* box = CurrentField())
        box->SendMessage(TextBox::WM_UNDO);
}

void frmMain::cmdClearClip_Click()
{
    platform::ClipboardClear();
}

void frmMain::Command13_Click()
{
    cmdCopy_Click();
}

void frmMain::Command14_Click()
{
    cmdCut_Click();
}

void frmMain::Command15_Click()
{
    cmdPaste_Click();
}

void frmMain::Command16_Click()
{
    mnuUndo_Click();
}

void frmMain::Command17_Click()
{
    mnuRedo_Click();
}

void frmMain::copyImage(TextBox* box)
{
    QString text = box->Text(); // a masked password is copied in clear
    SetClipboardText(text);
    // Read from the file at each click, whatever the copy did.
    if (GetIni(Keys::setts, Keys::option(4), ProfileFile(QStringLiteral("cfg.txt"))) == QLatin1String("1"))
        setWindowState(windowState() | Qt::WindowMinimized);
}

void frmMain::Image1_Click()
{
    copyImage(txtFullName);
}

void frmMain::Image2_Click()
{
    copyImage(txtPhone);
}

void frmMain::Image3_Click()
{
    copyImage(txtAddress);
}

void frmMain::Image4_Click()
{
    copyImage(txtAge);
}

void frmMain::Image5_Click()
{
    if (!txtAddress->Text().isEmpty())
        mnuOpenUrl_Click();
}

void frmMain::Image7_Click()
{
    if (!txtInterests->Text().isEmpty())
        mnuOpenDoc_Click();
}

void frmMain::mnuOpenUrl_Click()
{
    QString directory;
    ShellOpen(this, txtAddress->Text(), QString(), directory, 1, true);
}

void frmMain::mnuOpenDoc_Click()
{
    QString directory = QStringLiteral("C:\\");
    ShellOpen(this, txtInterests->Text(), QString(), directory, 1, true);
}

void frmMain::Image6_Click()
{
    ShowPasswordGenerator(this, QStringLiteral("1"));
}

void frmMain::mnuPassGen_Click()
{
    ShowPasswordGenerator(this, QStringLiteral("0"));
}

void frmMain::mnuSettings_Click()
{
    // Beside this window, not modal: the vault keeps working behind it.
    frmSettings::Instance()->show();
}

void frmMain::Command18_Click()
{
    mnuSettings_Click();
}

void frmMain::mnuReportList_Click()
{
    ShowReport(this);
}

void frmMain::mnuExport_Click()
{
    frmExport::Instance(this)->exec();
}

void frmMain::mnuImport_Click()
{
    frmImport::Instance(this)->exec();
}

void frmMain::aktul_Click()
{
    ShowUpdateCheck(this);
}

void frmMain::mnuAbout_Click()
{
    ShowAbout(this);
}

void frmMain::mnuWWW_Click()
{
    // The Polish home page, whatever the interface language.
    QString directory;
    ShellOpen(this, ServerAddress() + QStringLiteral("/pl"), QString(), directory, 1, true);
}

void frmMain::strwww_Click()
{
    mnuWWW_Click();
}

void frmMain::mnuForum_Click()
{
    QString directory;
    ShellOpen(this, ServerAddress() + QStringLiteral("/forum"), QString(), directory, 1, true);
}

void frmMain::read1_Click()
{
    LinkReadMe();
}

void frmMain::lic1_Click()
{
    LinkLicence();
}

void frmMain::EndRun()
{
    Unload();
    TrayHost::Unload();
    platform::EndProcess(0);
}

void frmMain::mnuClose_Click()
{
    EndRun();
}

void frmMain::mnuClose2_Click()
{
    mnuClose_Click();
}

void frmMain::mnuOpen_Click()
{
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void frmMain::closeEvent(QCloseEvent* event)
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
