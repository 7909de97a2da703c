// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Every text the program shows from the language table, by name. The number of each is the slot
// that its line fills in the language files (data/program/languages); no other code names it.

enum class Text
{
    // Start-up and the about dialog
    Copyright = 100,
    AlreadyRunning = 101,
    AboutTitle = 118,
    VersionLabel = 119,
    MakerSiteLabel = 120,
    AuthorLabel = 121,
    ComputerNameLabel = 122,
    TechnicalSupport = 125,
    SupportPageLabel = 126,
    ForumLabel = 127,
    ContactLabel = 128,
    Go = 135, // "Go >>", beside each link

    // The update check
    NewVersionAvailable = 144,
    CheckingForNewVersion = 145,
    LatestVersion = 146,

    Cancel = 147,

    // Export and import
    ChooseExportFolder = 177,
    DataExported = 178,
    Export = 179,
    ExportProfileLabel = 180,
    ImportReplacesAll = 181,
    ImportFileFilter = 182,
    Import = 183,
    ImportProfileLabel = 184,

    // The login
    WrongPassword = 185,
    ProfileMissingOrDamaged = 186,
    DefaultProfileMissing = 187,
    LoginTitle = 188,
    LoginProfileLabel = 189,
    LoginPasswordLabel = 190,
    LogIn = 191,

    // The vault window and the entry dialog
    TitleEmpty = 192,
    EntrySaved = 193,
    NothingToSearch = 195,
    TypeSearchText = 196,
    SearchResults = 197,
    SelectEntryFirst = 198,
    // "Do you really want to delete the entry", the title, "from the list?"
    DeleteEntryQuestion = 199,
    DeleteEntryQuestionEnd = 200,
    PasswordList = 201,
    StatusProfileLabel = 202,
    // The entry count's word: one entry, any other number of entries
    EntryWord = 203,
    EntriesWord = 204,
    SelectEntryToDelete = 205,

    // Menus and their items
    FileMenu = 206,
    NewEntryItem = 207,
    DeleteEntryItem = 208,
    ImportItem = 209,
    ExportItem = 210,
    PrintItem = 211,
    CloseItem = 212,
    EditMenu = 213,
    UndoItem = 214,
    RedoItem = 215,
    CutItem = 216,
    CopyItem = 217,
    PasteItem = 218,
    ClearClipboardItem = 219,
    ViewMenu = 220,
    OpenDocumentItem = 221,
    OpenAddressItem = 222,
    RefreshItem = 223,
    ReportsMenu = 224,
    PasswordListItem = 225,
    ToolsMenu = 226,
    GeneratorItem = 227,
    SettingsItem = 228,
    HelpMenu = 229,
    ReadMeItem = 232,
    LicenceItem = 233,
    CheckForUpdatesItem = 234,
    HomePageItem = 235,
    AboutItem = 236,
    OpenProgramItem = 237,
    ForumItem = 238,

    SearchLabel = 239,
    ShowAllPasswords = 240,
    // The captions of an entry's boxes
    TitleLabel = 241,
    UserNameLabel = 242,
    PassphraseLabel = 243,
    PasswordLabel = 244,
    UrlLabel = 245,
    DocumentLabel = 246,
    NoteLabel = 247,
    Save = 248,

    // A new profile, a password changed or reminded
    ProfileExists = 249,
    NewProfileTitle = 250,
    AddNewProfile = 251,
    NewProfilePasswordLabel = 252,
    ReminderQuestionLabel = 253,
    ReminderAnswerLabel = 254,
    EmailLabel = 255,
    Add = 256,
    OldPasswordWrong = 257,
    PasswordChanged = 258,
    ChangePasswordTitle = 259,
    ChangePasswordOf = 260,
    Change = 261,
    OldPasswordLabel = 262,
    NewPasswordLabel = 263,
    YourPasswordIs = 264,
    AnswerWrong = 265,
    ReminderTitle = 266,
    AnswerToSeePassword = 267,
    QuestionLabel = 268,
    AnswerLabel = 269,
    Continue = 270,

    // The password generator
    ReplacePassword = 271,
    GeneratorTitle = 272,
    Characters = 273,
    Letters = 274,
    Digits = 275,
    DigitsAndLetters = 276,
    Generate = 277,
    GeneratedPasswordLabel = 278,
    Use = 279,

    // The report
    ReportTitle = 280,
    Print = 281,
    SaveAs = 282,
    ReportWarning = 283,
    CreatedLabel = 284,
    ReportProfileLabel = 285,
    ReportTitleLabel = 286,

    TitleTaken = 288,
    DocumentHint = 289,
    AddNewPassword = 290,

    // The settings window's profiles page
    // "The user", the name, "is now the default user."
    TheUser = 291,
    IsNowDefault = 292,
    ChangeOnlyOwnPassword = 293,
    AdministratorStays = 294,
    DeleteProfileQuestion = 295,
    OnlyAdministratorDeletes = 296,
    SwitchRestarts = 297,

    // The settings window's drive page
    InstalledOnDrive = 298,
    DriveNotReady = 299,
    InstallFailed = 300,
    Installed = 301,
    NotInstalled = 302,
    RemovedFromDrive = 303,
    RemoveFailed = 304,

    LastLoginLabel = 305,
    LanguageAtNextStart = 306,
    GeneralPage = 307,
    DrivesPage = 308,
    ProfilesPage = 309,
    CurrentProfileLabel = 310,
    DefaultProfileLabel = 311,
    SelectedProfileLabel = 312,
    AddProfile = 313,
    DeleteProfile = 314,
    SwitchProfile = 315,
    RemindPassword = 316,
    ChangePassword = 317,
    SetAsDefault = 318,
    LastProfileIsDefault = 319,
    // The captions of the profile's options
    AlwaysOnTopOption = 320,
    SortListOption = 321,
    ClearClipboardOption = 322,
    MinimiseAfterCopyOption = 323,
    HidePasswordsOption = 324,
    LanguageLabel = 325,
    LocationLabel = 326,
    StatusLabel = 327,
    Uninstall = 328,
    DrivesUnavailable = 329,
    Install = 330,

    // The program's own messages, which the original never had
    VaultTooLarge = 900,
    // A save that could not be written: the first half, the file, the second half
    VaultNotSaved = 901,
    ChangesNotSaved = 902,
};
