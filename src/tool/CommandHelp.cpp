// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/CommandHelp.h"

#include <QStringList>

namespace {

struct Help
{
    const char* name;
    const char* synopsis;
    const char* what;
    const char* arguments; // may be empty
    const char* options; // the command's own; --profile and --help are added
    const char* example;
    bool onProfile; // works on a profile of the data tree: --profile applies
    const char* accepts; // the command's own options, by name, separated by blanks
};

// Lines stay within 72 columns, so that the manual page shows them unbroken.
const Help helps[] = {
    { "ls", "ls [--json] [--profile NAME]",
        "Print the titles of the profile's entries, one a line, in the order of\n"
        "the program's list.\n",
        "", "  --json                 print a JSON array of the titles\n", "tolvane-vault ls --profile Anna", true,
        "json" },
    { "search", "search TEXT [--json] [--profile NAME]",
        "Print the rows of the program's search for TEXT, in its order: an entry\n"
        "is found when its title, user name, password, document, address, pass\n"
        "phrase or note holds TEXT, whatever the case. Nothing found exits 1,\n"
        "as grep does.\n",
        "  TEXT                   the text to find, blanks included\n",
        "  --json                 print a JSON array of {\"row\", \"title\"}\n", "tolvane-vault search bank", true,
        "json" },
    { "show", "show TITLE [-a FIELD]... [--show-password] [--json]\n                          [--profile NAME]",
        "Print the fields of the entry TITLE, the password masked; with -a, only\n"
        "the fields asked for, raw, one a line, the password in clear.\n",
        "  TITLE                  the entry's title (the last of that title)\n",
        "  -a, --attribute FIELD  print this field alone; again for more fields.\n"
        "                         FIELD: title, user, passphrase, password, url,\n"
        "                         document, note\n"
        "  --show-password        print the password in clear\n"
        "  --json                 print every field (the picture too) as JSON\n",
        "tolvane-vault show Mail -a user -a password", true, "json show-password attribute" },
    { "clip", "clip TITLE [FIELD] [--seconds N] [--profile NAME]",
        "Put a field of the entry TITLE on the clipboard, marked secret, and take\n"
        "it off after a while, unless something else was copied meanwhile.\n"
        "Needs a desktop session and tolvane-clipboard-keeper beside the tool.\n",
        "  TITLE                  the entry's title\n"
        "  FIELD                  title, user, passphrase, password (default),\n"
        "                         url, document or note\n",
        "  --seconds N            clear the clipboard after N seconds, 1 to 86400\n"
        "                         (default 10); Ctrl+C clears it at once\n",
        "tolvane-vault clip Mail user --seconds 30", true, "seconds" },
    { "generate",
        "generate [--letters|--digits|--mixed] [--length N]\n   or: tolvane-vault generate --strong [--length N]",
        "Print a new password. By default from the program's generator: letters\n"
        "a to y, digits 0 to 8, or both. With --strong: upper and lower case,\n"
        "digits and every ASCII symbol but & = [ ] ; (which a save escapes or\n"
        "changes), each kind at least once (a password lacking one is drawn\n"
        "again whole), from the system's random source. Nothing is stored.\n",
        "",
        "  --letters, --digits, --mixed\n"
        "                         letters only, digits only, or both (default)\n"
        "  --length N             4 to 15 characters (default 5); with --strong,\n"
        "                         8 to 48 (default 20): the vault keeps no more\n"
        "  --strong               the strong generator described above\n",
        "tolvane-vault generate --strong --length 24", false, "letters digits mixed length strong" },
    { "add", "add TITLE [FIELD OPTION...] [--profile NAME]",
        "Add an entry at the end of the list, as the program's new-entry dialog\n"
        "does, and save the vault as the program saves it. Refused when an entry\n"
        "has the title already, and while the program runs on the data tree. A\n"
        "value the vault will give back otherwise (cut at 48 characters, with\n"
        "escapes, a letter outside its code page) is told on standard error.\n",
        "  TITLE                  the new entry's title: no line break or tab\n",
        "  --user TEXT            the user name\n"
        "  --password TEXT        the password (seen in other users' process\n"
        "                         lists: --ask-password is safer)\n"
        "  --ask-password         the password, typed without echo\n"
        "  --generate             a password from the generator, told on standard\n"
        "                         error (--length, --letters, --digits, --mixed,\n"
        "                         --strong as for generate)\n"
        "  --passphrase TEXT      the pass phrase\n"
        "  --url TEXT             the web address\n"
        "  --document TEXT        the path of a document\n"
        "  --note TEXT            the note\n",
        "tolvane-vault add Mail --user anna --generate --strong", true,
        "user password passphrase url document note ask-password generate length letters digits mixed strong" },
    { "edit", "edit TITLE [--title NEW] [FIELD OPTION...]\n                          [--profile NAME]",
        "Change the fields given of the entry TITLE, in its place, and save the\n"
        "vault as the program saves it. Fields not given stay as they are.\n",
        "  TITLE                  the entry's title\n",
        "  --title NEW            rename the entry; refused when NEW is taken\n"
        "  --user, --passphrase, --url, --document, --note, --password,\n"
        "  --ask-password, --generate and its options\n"
        "                         as for add\n",
        "tolvane-vault edit Mail --ask-password", true,
        "title user password passphrase url document note ask-password generate length letters digits mixed strong" },
    { "rm", "rm TITLE [--profile NAME]",
        "Remove the entry TITLE and save the vault. The last entry is not\n"
        "removed: the program saves no empty list, so it would come back.\n",
        "  TITLE                  the entry's title\n", "", "tolvane-vault rm \"Old mail\"", true, "" },
    { "profiles", "profiles",
        "Print the profiles the program's login lists, one a line, from the data\n"
        "tree's users.txt. No password is asked.\n",
        "", "", "tolvane-vault profiles", false, "" },
    { "export", "export [--format xml|json] [--profile NAME]",
        "Print the whole profile on standard output, for another password\n"
        "keeper or a backup. xml: KeePass 2 XML, which keepassxc-cli import\n"
        "reads; every entry in the root group, named after the profile, with\n"
        "Title, UserName, Password, URL and Notes, and the pass phrase, document\n"
        "and picture as the strings Passphrase, Document and Picture. json: the\n"
        "entries as dump prints them. Values as the program's load gives them.\n",
        "", "  --format xml|json      the format (default xml)\n",
        "tolvane-vault export > p.xml; keepassxc-cli import -p p.xml p.kdbx", true, "format" },
    { "import", "import FILE [--format FORMAT] [--replace]\n                            [--profile NAME]",
        "Add the entries of FILE at the end of the list and save the vault as\n"
        "the program saves it. A title already in the list refuses the whole\n"
        "import (nothing written) unless --replace; a title twice in FILE does.\n"
        "Every value the vault will give back otherwise (cut at 48 characters,\n"
        "with escapes, a letter outside its code page) is told on standard\n"
        "error.\n",
        "  FILE                   the file to read; - for standard input\n",
        "  --format FORMAT        keepassxc-csv: the CSV of keepassxc-cli export\n"
        "                         -f csv and of KeePassXC's CSV export; json: as\n"
        "                         export --format json writes it; xml: KeePass 2\n"
        "                         XML, as keepassxc-cli export writes it\n"
        "                         (without it, FILE's ending tells: .csv, .json,\n"
        "                         .xml)\n"
        "  --replace              an entry of a title already in the list is\n"
        "                         replaced where it stands\n",
        "tolvane-vault import p.csv --format keepassxc-csv", true, "format replace" },
    { "dump", "dump FILE",
        "Print the entries of a vault file as the program loads them, as JSON:\n"
        "texts are the bytes of the program's code page, padding included.\n",
        "  FILE                   a list.dat or an exported .tvd file\n", "",
        "tolvane-vault dump backup.tvd > backup.json", false, "" },
    { "save", "save FILE",
        "Write a vault file from a JSON array of entries on standard input, as\n"
        "the program saves (fields: title, user, passphrase, password, url,\n"
        "document, note, picture). Refused, with nothing written, for a field of\n"
        "another name, an entry without a title, a vault text over 32,764 bytes\n"
        "or a data tree the program runs on.\n",
        "  FILE                   the vault file to write (a regular file)\n", "",
        "tolvane-vault save new.tvd < backup.json", false, "" },
    { "unwrap", "unwrap FILE",
        "Print the inner text of a vault file, the outer layer taken off. The\n"
        "file is not changed.\n",
        "  FILE                   a list.dat or an exported .tvd file\n", "", "tolvane-vault unwrap backup.tvd | less",
        false, "" },
    { "rescue", "rescue FILE",
        "Print the entries of a vault file with what the program's reading\n"
        "loses: values longer than 48 characters whole, escapes undone, padding\n"
        "cut. As JSON, for save or another keeper.\n",
        "  FILE                   a list.dat or an exported .tvd file\n", "",
        "tolvane-vault rescue list.dat > whole.json", false, "" },
};

const char* profileOption = "  --profile NAME         the profile; without it, the one the login\n"
                            "                         offers. A password is asked if it has one (the\n"
                            "                         first line of standard input if no terminal)\n";

const Help* helpOf(const QString& command)
{
    for (const Help& h : helps) {
        if (command == QLatin1String(h.name))
            return &h;
    }
    return nullptr;
}

} // namespace

bool CommandTakes(const QString& command, const QString& option)
{
    const Help* h = helpOf(command);
    return h
        && (option == QLatin1String("help") || (h->onProfile && option == QLatin1String("profile"))
            || QString::fromLatin1(h->accepts).split(QLatin1Char(' '), Qt::SkipEmptyParts).contains(option));
}

QString CommandHelp(const QString& command)
{
    if (const Help* found = helpOf(command)) {
        const Help& h = *found;
        QString text
            = QStringLiteral("Usage: tolvane-vault %1\n%2\n").arg(QLatin1String(h.synopsis), QLatin1String(h.what));
        if (*h.arguments)
            text += QStringLiteral("Arguments:\n%1\n").arg(QLatin1String(h.arguments));
        text += QStringLiteral("Options:\n") + QLatin1String(h.options);
        if (h.onProfile)
            text += QLatin1String(profileOption);
        text += QStringLiteral("  -h, --help             print this help and end\n\nExample:\n  %1\n")
                    .arg(QLatin1String(h.example));
        return text;
    }
    return QString();
}
