// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's Printer object (Print, EndDoc) on the system's default printer, with no print
// dialog: a font, lines printed one after the other, and the end of the document, which sends
// the job. Line wrapping and page breaks are the printer's. TOLVANE_PRINTER_OUTPUT names a PDF
// file that stands in for the printer (tests, and printing to a file).
#include <QFont>
#include <QString>
#include <QStringList>

#include <utility>

namespace platform {

class Printer
{
public:
    // 0, or the run-time error number of the failure; errorDescription() tells it.
    int printLine(const QString& text = QString());
    int endDocument();
    void setFontName(const QString& name) { font.setFamily(name); }
    void setFontSize(int points) { font.setPointSize(points); }
    void setFontBold(bool bold) { font.setBold(bold); }
    QString errorDescription() const { return description; }

private:
    int fail(const QString& text);
    QFont font; // the printer's default font until set
    QList<std::pair<QFont, QString>> lines;
    QString description;
};

} // namespace platform
