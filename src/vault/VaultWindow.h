#pragma once
// The vault window: the list on the left, the boxes of the entry on show on the right. Its
// load reads the vault of `current` into entryTable and its unload writes the table back;
// nothing else saves the vault.
#include "storage/Entry.h"
#include "storage/ListControl.h"
#include "vault/EntryBoxes.h"

#include <QMainWindow>
#include <QTimer>

#include <optional>

class SkinnedButton;
class ClickablePicture;
class ListBox;
class QAction;
class QFrame;
class QLabel;
class QMenu;
class QPushButton;
class TextBox;

// The title that a row stands for: the text before the first " (", or the whole row.
QString RowTitle(const QString& row);

// The row that an entry adds to a search for `needle` (already in lower case): the first of
// title, name, age, interests, address, phone, extra that holds it decides the form.
std::optional<QString> SearchRow(const Entry& entry, const QString& needle);

class VaultWindow : public QMainWindow
{
    Q_OBJECT
public:
    // The one window of a run, created and loaded at its first use, as a form is.
    static VaultWindow* Instance();
    // The window if it is loaded, else null.
    static VaultWindow* Loaded();
    // Runs Form_Unload and discards the window.
    static void Unload();
    // The end of a run: the vault window unloaded (which saves), the host window unloaded (which
    // empties the clipboard if the option says so), the process ended.
    [[noreturn]] static void EndRun();

    void Form_Load();
    void Form_Unload();
    void Form_Resize();

    void Timer1_Timer();
    void Timer3_Timer();

    // Search, back to the full list, row click.
    void Command1_Click();
    void Command2_Click();
    void mnuRefresh_Click();
    void lstResults_Click();

    void cmdSaveChanges_Click();
    void mnuNew_Click();
    void Command9_Click();
    void mnuDelete_Click();
    void Command10_Click();

    // The edit commands act on the field clicked last, not on the focused box.
    void cmdCopy_Click();
    void cmdCut_Click();
    void cmdPaste_Click();
    void mnuUndo_Click();
    void mnuRedo_Click();
    void cmdClearClip_Click();
    void Command13_Click();
    void Command14_Click();
    void Command15_Click();
    void Command16_Click();
    void Command17_Click();
    // The copy images: the box beside them, whatever field was clicked last.
    void Image1_Click();
    void Image2_Click();
    void Image3_Click();
    void Image4_Click();
    void Image5_Click();
    void Image6_Click();
    void Image7_Click();
    void mnuOpenUrl_Click();
    void mnuOpenDoc_Click();
    void mnuPassGen_Click();
    void mnuSettings_Click();
    // Report (also mnuPrint and toolbar Command11/Command12), export, import, update, about.
    void mnuReportList_Click();
    void mnuExport_Click();
    void mnuImport_Click();
    void aktul_Click();
    void mnuAbout_Click();
    void Command18_Click();
    void mnuWWW_Click();
    void strwww_Click();
    void mnuForum_Click();
    void read1_Click();
    void lic1_Click();

    void mnuClose_Click();
    void mnuClose2_Click();
    void mnuOpen_Click();

    // Clears lstResults and adds the title of every entry from 1 on.
    void FillWithAllTitles();

    // The outer size of the window in twips, as the layout rules read and set it: the client
    // area below the menu bar and the frame of the original platform around it.
    int OuterWidth() const;
    int OuterHeight() const;
    void SetOuterSize(int W, int H);
    static constexpr int frameWidth = 240;
    static constexpr int frameHeight = 840;

    // Menus and their entries, by name.
    QMenu* mnuFile;
    QAction *mnuNew, *mnuDelete, *mnuImport, *mnuExport, *mnuPrint, *mnuClose;
    QMenu* mnuEdit;
    QAction *mnuUndo, *mnuRedo, *cmdCut, *cmdCopy, *cmdPaste, *cmdClearClip;
    QMenu* mnuView;
    QAction *mnuOpenDoc, *mnuOpenUrl, *mnuRefresh;
    QMenu* mnuReports;
    QAction* mnuReportList;
    QMenu* mnuTools;
    QAction *mnuPassGen, *mnuSettings;
    QMenu* mnuHelp;
    QAction *read1, *lic1, *aktul, *strwww, *mnuAbout;
    QMenu* mnuPop; // the tray's menu, never in the bar
    QAction *mnuOpen, *mnuUpdate, *mnuWWW, *mnuForum, *mnuAbout2, *mnuClose2;

    // Toolbar.
    SkinnedButton *Command9, *Command10, *Command11, *Command12, *Command13, *Command14, *Command15, *Command16,
        *Command17, *Command18;
    QLabel* Image8;
    QFrame* Line1;

    QLabel *Label1, *Label2, *Label3;
    TextBox* txtSearch;
    SkinnedButton* Command1;
    QPushButton* Command2;
    ListBox* lstResults;

    ClickablePicture *Image1, *Image2, *Image3, *Image4, *Image5, *Image6, *Image7;

    QLabel *lblViewID, *lblFullName, *lblPhone, *lblAge, *lblAddress, *lblInterests, *lblExtra;
    TextBox *txtDetails, *txtFullName, *txtPhone, *txtAge, *txtAddress, *txtInterests, *txtExtra;
    QPushButton* cmdSaveChanges;

    QLabel* StatusBar1Panel[4];
    QTimer* Timer1;
    QTimer* Timer3;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    VaultWindow();
    void buildMenus();
    void buildControls();
    void setCaptions();
    void setPanel(int panel, const QString& text);
    void setListHeading(const QString& heading);
    void LoadSelectedEntry();
    void showCurrentEntry();
    void deleteSelected(int noSelectionSlot);
    EntryBoxes Boxes() const;
    // The box named by currentField, or null when it names none.
    TextBox* CurrentField() const;
    void copyImage(TextBox* box);
    void buildImages(QWidget* client);

    bool unloaded = false;
    // The record of the field clicked last: the name of its box, or "Label4" (no field) until a
    // box was clicked, as the hidden label of the original held it.
    QString currentField = QStringLiteral("Label4");
    // The names of users.txt, read at the load (which provisions the tree when it can't be read).
    StringListControl profileNames;

public:
    QString CurrentFieldName() const { return currentField; }
};
