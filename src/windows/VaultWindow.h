// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The vault window (the original's frmMain; its controls are listed in docs/original-names.md).
// The list on the left, the boxes of the entry on show on the right. Its load reads the vault of
// `current` into the run's vault and its unload writes it back; nothing else saves the vault.
#include "core/Entry.h"
#include "core/ListControl.h"
#include "core/Texts.h"
#include "windows/EntryBoxes.h"

#include <QMainWindow>

class ClickablePicture;
class ListBox;
class QAction;
class QFrame;
class QLabel;
class QMenu;
class QPushButton;
class QTimer;
class SkinnedButton;
class TextBox;
class Vault;

class VaultWindow : public QMainWindow
{
    Q_OBJECT
public:
    // The one window of a run, created and loaded over the run's vault at its first use, as a
    // form is.
    static VaultWindow* Open(Vault& vault);
    // The window if it is loaded, else null.
    static VaultWindow* Loaded();
    // Saves (the window's unload) and discards the window.
    static void Unload();

    // The pop-up menu of the notification area; without one, it stands in the menu bar.
    QMenu* TrayMenu() const { return trayMenu; }
    void ShowTrayMenuInBar();
    // Only a typed login starts the silent update check, at the timer's first tick (1 s; tests
    // call the tick instead of waiting).
    void StartUpdateCheckTimer();
    void startSilentUpdateCheck();

    // The tick of the timer that keeps the boxes locked or free, and the fourth status panel,
    // in step with the title on show (every 100 ms; tests call it instead of waiting).
    void keepBoxesInStep();

    // What the boxes have carried into the working copy so far: what Save stores.
    const Entry& WorkingCopy() const { return working; }

    // The outer size of the window in twips, as the layout rules read and set it: the client
    // area below the menu bar and the frame of the original platform around it.
    int OuterWidth() const;
    int OuterHeight() const;
    void SetOuterSize(int W, int H);
    static constexpr int frameWidth = 240;
    static constexpr int frameHeight = 840;

Q_SIGNALS:
    // The user asked for the settings window (never while the vault is being saved).
    void settingsRequested();
    // The user asked to end the run: File > Close, the icon menu's Close, or the close box
    // where there is no notification area to come back through.
    void endRequested();
    // The unload's save is done and the window is on its way out.
    void unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    explicit VaultWindow(Vault& vault);
    void buildMenus();
    void buildControls();
    void buildPictures(QWidget* client);
    void setCaptions();
    void load();
    void save();
    void layOut();

    // The list: search, back to the whole list, a row's entry on show.
    void search();
    void showAllEntries();
    void refresh();
    void showSelectedEntry();
    void loadSelectedEntry();
    void showCurrentEntry();
    void fillWithAllTitles();
    void setListHeading(const QString& heading);
    void setPanel(int panel, const QString& text);

    // Entries: new, changed, deleted (the menu and the toolbar tell a missing selection apart).
    void newEntry();
    void saveChangedEntry();
    void deleteEntryFromMenu();
    void deleteEntryFromToolbar();
    void deleteSelectedEntry(Text noSelection);

    // The edit commands act on the field clicked last, not on the focused box; Redo is a
    // second Undo.
    void copyCurrentField();
    void cutCurrentField();
    void pasteIntoCurrentField();
    void undoCurrentField();
    void clearClipboard();
    TextBox* currentFieldBox() const;
    // The pictures beside the boxes: a copy of the box, whatever field was clicked last.
    void copyBoxBeside(TextBox* box);
    void openAddress();
    void openDocument();
    void openAddressIfAny();
    void openDocumentIfAny();
    void openGenerator();
    void openGeneratorForPassword();

    void openSettings();
    void showReport();
    void exportVault();
    void importVault();
    void checkForUpdates();
    void showAbout();
    void openHomePage();
    void openForum();
    void openReadMe();
    void openLicence();
    void showWindow();

    EntryBoxes boxes() const;

    QMenu *fileMenu, *editMenu, *viewMenu, *reportsMenu, *toolsMenu, *helpMenu;
    QAction *newEntryAction, *deleteEntryAction, *importAction, *exportAction, *printAction, *closeAction;
    QAction *undoAction, *redoAction, *cutAction, *copyAction, *pasteAction, *clearClipboardAction;
    QAction *openDocumentAction, *openAddressAction, *refreshAction;
    QAction* reportAction;
    QAction *generatorAction, *settingsAction;
    QAction *readMeAction, *licenceAction, *updateAction, *homePageAction, *aboutAction;
    QMenu* trayMenu; // never in the bar while there is a notification area
    QAction *showWindowAction, *trayUpdateAction, *trayHomePageAction, *forumAction, *trayAboutAction, *trayCloseAction;

    SkinnedButton *newEntryButton, *deleteEntryButton, *printButton, *reportButton, *copyButton, *cutButton,
        *pasteButton, *undoButton, *redoButton, *settingsButton;
    QLabel* headingStrip;
    QFrame* headingLine;

    QLabel *searchCaption, *listHeading, *entryHeading;
    TextBox* searchBox;
    SkinnedButton* searchButton;
    QPushButton* showAllButton; // visible only in results mode: the record of the mode
    ListBox* list;

    ClickablePicture *copyUserNameButton, *copyPassphraseButton, *copyUrlButton, *copyPasswordButton,
        *openAddressButton, *generatorButton, *openDocumentButton;

    QLabel *titleCaption, *userNameCaption, *passphraseCaption, *passwordCaption, *urlCaption, *documentCaption,
        *noteCaption;
    TextBox *titleBox, *userNameBox, *passphraseBox, *passwordBox, *urlBox, *documentBox, *noteBox;
    QPushButton* saveButton;

    QLabel* statusPanels[4];
    QTimer* boxLockTimer;
    QTimer* updateCheckTimer;

    Vault& vault;
    // The working copy between the boxes and the vault (the new-entry dialog's too).
    Entry working;
    bool isUnloaded = false;
    // The field clicked last: its box, or none until a box was clicked.
    TextBox* currentField = nullptr;
    // The names of users.txt, read at the load (which provisions the tree when it can't be read).
    StringListControl profileNames;
};
