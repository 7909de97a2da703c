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
    // Runs save and discards the window.
    static void Unload();
    // The end of a run: the vault window unloaded (which saves), the host window unloaded (which
    // empties the clipboard if the option says so), the process ended.
    [[noreturn]] static void EndRun();

    void load();
    void save();
    void layOut();

    void keepBoxesInStep();
    void startSilentUpdateCheck();

    // Search, back to the full list, row click.
    void search();
    void showAllEntries();
    void refresh();
    void showSelectedEntry();

    void saveChangedEntry();
    void newEntry();
    // Delete the selected entry; the two tell a missing selection by different messages.
    void deleteEntryFromMenu();
    void deleteEntryFromToolbar();

    // The edit commands act on the field clicked last, not on the focused box.
    void copyCurrentField();
    void cutCurrentField();
    void pasteIntoCurrentField();
    void undoCurrentField();
    void redoCurrentField();
    void clearClipboard();
    // The copy images: the box beside them, whatever field was clicked last.
    void openAddressIfAny();
    void openGeneratorForPassword();
    void openDocumentIfAny();
    void openAddress();
    void openDocument();
    void openGenerator();
    void openSettings();
    // Report (also printAction and toolbar printButton/reportButton), export, import, update, about.
    void showReport();
    void exportVault();
    void importVault();
    void checkForUpdates();
    void showAbout();
    void openHomePage();
    void openForum();
    void openReadMe();
    void openLicence();

    void closeProgram();
    void showWindow();

    // Clears list and adds the title of every entry from 1 on.
    void fillWithAllTitles();
    // The rows the list shows now.
    int ListedRows() const;

    // The outer size of the window in twips, as the layout rules read and set it: the client
    // area below the menu bar and the frame of the original platform around it.
    int OuterWidth() const;
    int OuterHeight() const;
    void SetOuterSize(int W, int H);
    static constexpr int frameWidth = 240;
    static constexpr int frameHeight = 840;

    // Menus and their entries, by name.
    QMenu* fileMenu;
    QAction *newEntryAction, *deleteEntryAction, *importAction, *exportAction, *printAction, *closeAction;
    QMenu* editMenu;
    QAction *undoAction, *redoAction, *cutAction, *copyAction, *pasteAction, *clearClipboardAction;
    QMenu* viewMenu;
    QAction *openDocumentAction, *openAddressAction, *refreshAction;
    QMenu* reportsMenu;
    QAction* reportAction;
    QMenu* toolsMenu;
    QAction *generatorAction, *settingsAction;
    QMenu* helpMenu;
    QAction *readMeAction, *licenceAction, *updateAction, *homePageAction, *aboutAction;
    QMenu* trayMenu; // the tray's menu, never in the bar
    QAction *showWindowAction, *trayUpdateAction, *trayHomePageAction, *forumAction, *trayAboutAction, *trayCloseAction;

    // Toolbar.
    SkinnedButton *newEntryButton, *deleteEntryButton, *printButton, *reportButton, *copyButton, *cutButton,
        *pasteButton, *undoButton, *redoButton, *settingsButton;
    QLabel* headingStrip;
    QFrame* headingLine;

    QLabel *searchCaption, *listHeading, *entryHeading;
    TextBox* searchBox;
    SkinnedButton* searchButton;
    QPushButton* showAllButton;
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
    void loadSelectedEntry();
    void showCurrentEntry();
    void deleteSelectedEntry(int noSelectionSlot);
    EntryBoxes boxes() const;
    // The box named by currentField, or null when it names none.
    TextBox* currentFieldBox() const;
    void copyBoxBeside(TextBox* box);
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
