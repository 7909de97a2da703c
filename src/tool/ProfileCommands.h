// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The commands of tolvane-vault that work on a profile of the user's data tree, with the
// program's own rules: the login's choice of profile and its password check, the list's order,
// the search and its rows, the generator, the new-entry and save rules, and the save itself.
// No window of the original has them; they stand beside the vault window so that the two never
// disagree.
#include "core/Entry.h"
#include "core/Vault.h"
#include "platform/TreeLock.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class ProfileCommands
{
public:
    // The command line after the program's name: a command, its arguments, and options anywhere.
    explicit ProfileCommands(const QStringList& arguments);

    // The command: the first argument that is neither an option nor an option's value.
    const QString& Command() const { return command; }

    // --help or -h given as an option (not as an option's value, not after "--").
    bool HelpAsked() const { return flag("help"); }
    // For the commands on a file: the arguments after the command, when nothing else was given.
    std::optional<QStringList> PlainArguments() const
    {
        if (!parseError.isEmpty() || !flags.isEmpty() || !options.isEmpty() || !attributes.isEmpty())
            return std::nullopt;
        return positional;
    }
    // What is wrong with a title for the vault (a line break or a tab, which would make other
    // sections of the file; a letter the files' code page can't hold, which would become another
    // title); empty when nothing is.
    static QString TitleFault(const QString& title);

    static bool Handles(const QString& command);
    static const char* Usage();

    // 0 done, 1 refused or bad input, 2 usage.
    int run();

private:
    struct Profile
    {
        QString name;
        QString vault; // the path of its list.dat, in the program's Windows form
    };

    // A command: its name, how many arguments it takes, and what runs it.
    struct Verb
    {
        const char* name;
        qsizetype fewest;
        qsizetype most;
        int (ProfileCommands::*run)();
    };
    static const Verb verbs[];
    static const Verb* verbNamed(const QString& name);

    int list();
    int search();
    int show();
    int clip();
    int generate();
    int add();
    int edit();
    int remove();
    int exportEntries();
    int importEntries();
    int profiles();

    struct OpenVault
    {
        Profile profile;
        Vault entries;
        int index = -1; // of the entry named on the command line
    };

    // The profile named by --profile, or the one the login offers; its password asked if it has one.
    std::optional<Profile> openProfile();
    // The profile's entries as the program's load reads them; the file is not changed. To write
    // them back, the data tree's lock is taken first (after the password) and held until the
    // command ends; refused while the program holds the tree.
    std::optional<OpenVault> openVault(bool toWrite = false);
    // The second half of openVault, for a profile already open.
    std::optional<OpenVault> readVault(const Profile& profile, bool toWrite);
    // The same, with the last entry of the title given first on the command line (the program's
    // lookup); refused when there is none.
    std::optional<OpenVault> openEntry(bool toWrite = false);
    // The program's save of these entries, refused while the program runs; a warning for each
    // value of the changed entries that the next load will give back otherwise.
    int writeEntries(const Profile& profile, Vault& entries, const QStringList& changedTitles);
    // The new password of --ask-password or --generate, asked before the vault is read.
    bool takeNewPassword();
    // Field options given on the command line, written into the entry.
    void applyFieldOptions(Entry& entry);
    std::optional<QString> generatedPassword();

    static int lastIndexOf(const QList<Entry>& entries, const QString& title);
    // The index of each title's last entry, for many lookups at once.
    static QHash<QByteArray, int> lastIndexes(const QList<Entry>& entries);

    bool flag(const char* name) const { return flags.contains(QLatin1String(name)); }
    std::optional<QString> option(const char* name) const;
    int usageError(const QString& message) const;

    QString command;
    QStringList positional;
    QSet<QString> flags;
    QHash<QString, QString> options;
    QStringList attributes; // show's -a, in the order given
    QString parseError;
    std::optional<QString> newPassword;
    std::unique_ptr<platform::TreeWriteLock> writeLock;
};
