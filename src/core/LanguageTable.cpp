// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LanguageTable.h"

#include "core/RegistryLayer.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <array>
#include <cmath>

namespace {

std::array<QString, 1000>& table()
{
    static std::array<QString, 1000> texts;
    return texts;
}

QString programTrim(const QString& s)
{
    // The runtime's Trim takes blanks only, not tabs.
    qsizetype b = 0;
    qsizetype e = s.size();
    while (b < e && s.at(b) == QLatin1Char(' '))
        ++b;
    while (e > b && s.at(e - 1) == QLatin1Char(' '))
        --e;
    return s.mid(b, e - b);
}

} // namespace

QString Lang(Text text)
{
    // Any number fits an enum, so a test can read a slot that no text names.
    const int slot = static_cast<int>(text);
    if (slot < 0 || slot >= static_cast<int>(table().size()))
        return QString();
    return table()[static_cast<size_t>(slot)];
}

void ClearLanguageTable()
{
    for (QString& s : table())
        s.clear();
}

double Val(const QString& text)
{
    QString s;
    for (QChar c : text) {
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n'))
            s += c;
    }
    if (s.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)
        || s.startsWith(QLatin1String("&O"), Qt::CaseInsensitive)) {
        const int base = s.at(1).toUpper() == QLatin1Char('H') ? 16 : 8;
        qint64 v = 0;
        for (qsizetype i = 2; i < s.size(); ++i) {
            const int d = s.at(i).isDigit() ? s.at(i).digitValue()
                : (base == 16 && s.at(i).toUpper() >= QLatin1Char('A') && s.at(i).toUpper() <= QLatin1Char('F'))
                ? s.at(i).toUpper().unicode() - 'A' + 10
                : -1;
            if (d < 0 || d >= base)
                break;
            v = v * base + d;
        }
        return static_cast<double>(v);
    }
    qsizetype i = 0;
    QString number;
    if (i < s.size() && (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+')))
        number += s.at(i++);
    bool dot = false;
    bool digits = false;
    while (i < s.size() && (s.at(i).isDigit() || (s.at(i) == QLatin1Char('.') && !dot))) {
        if (s.at(i) == QLatin1Char('.'))
            dot = true;
        else
            digits = true;
        number += s.at(i++);
    }
    if (!digits)
        return 0;
    if (i < s.size() && QStringLiteral("eEdD").contains(s.at(i))) {
        QString exponent = QStringLiteral("e");
        qsizetype j = i + 1;
        if (j < s.size() && (s.at(j) == QLatin1Char('-') || s.at(j) == QLatin1Char('+')))
            exponent += s.at(j++);
        const qsizetype start = j;
        while (j < s.size() && s.at(j).isDigit())
            exponent += s.at(j++);
        if (j > start)
            number += exponent;
    }
    return number.toDouble();
}

qint16 ReadLanguageFile(const QString& path)
{
    if (path.isEmpty())
        return 1;
    QList<QByteArray> lines;
    if (platform::ReadLines(path, lines) != platform::ErrNone)
        return 1;
    for (const QByteArray& raw : lines) {
        const QString line = platform::FromCodePage(raw);
        if (line.startsWith(QLatin1Char(';')) || programTrim(line).isEmpty())
            continue;
        // The array index is the number rounded as the runtime rounds (half to even).
        const double number = std::nearbyint(Val(line.left(3)));
        QString text = line.mid(4);
        text.replace(QLatin1Char('_'), QLatin1Char('\r'));
        if (number >= 0 && number < static_cast<double>(table().size()))
            table()[static_cast<size_t>(number)] = text;
    }
    return 0;
}

void LoadLanguage()
{
    if (GetProgramSetting(QStringLiteral("curLang")).isEmpty()) {
        // The table can't be there yet, so this is the one text that is no slot.
        platform::ShowMessage(
            QStringLiteral("Error: Failed loading selected language."), platform::MessageIcon::Critical);
        SaveProgramSetting(QStringLiteral("curLang"), QStringLiteral("English"));
    }
    const QString path = platform::ProgramFolder() + QStringLiteral("\\languages\\")
        + GetProgramSetting(QStringLiteral("curLang")) + QLatin1Char('\\')
        + GetProgramSetting(QStringLiteral("curLang")) + QStringLiteral(".txt");
    ReadLanguageFile(path);
    // The buttons the toolkit draws itself (Yes, No, Cancel) speak the same language.
    const QString language = GetProgramSetting(QStringLiteral("curLang"));
    platform::UseToolkitLanguage(language == QLatin1String("Polish") ? QStringLiteral("pl")
            : language == QLatin1String("Deutsch")                   ? QStringLiteral("de")
                                                                     : QStringLiteral("en"));
}
