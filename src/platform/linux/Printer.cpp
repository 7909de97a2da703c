// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Printer.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace platform {

int Printer::fail(const QString& text)
{
    description = text;
    lines.clear();
    return 482; // the runtime's "Printer error"
}

int Printer::printLine(const QString& text)
{
    // The runtime prints each line of the text on a line of its own.
    QString t = text;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const QString& line : t.split(QLatin1Char('\n')))
        lines.append({ font, line });
    return 0;
}

int Printer::endDocument()
{
    const QString output = QString::fromLocal8Bit(qgetenv("TOLVANE_PRINTER_OUTPUT"));
    QPrinter printer(QPrinter::HighResolution);
    if (!output.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(output);
    } else {
        const QPrinterInfo info = QPrinterInfo::defaultPrinter();
        if (info.isNull())
            return fail(QStringLiteral("Printer error: no default printer is set up on this computer."));
        printer.setPrinterName(info.printerName());
    }
    printer.setDocName(QStringLiteral("Tolvane"));
    QPainter painter;
    if (!painter.begin(&printer))
        return fail(QStringLiteral("Printer error: the printer could not be opened."));
    const QRect page = painter.viewport();
    int y = 0;
    for (const auto& [lineFont, text] : std::as_const(lines)) {
        painter.setFont(QFont(lineFont, &printer));
        const QRect needed = painter.boundingRect(
            QRect(0, 0, page.width(), page.height()), Qt::TextWordWrap, text.isEmpty() ? QStringLiteral(" ") : text);
        if (y > 0 && y + needed.height() > page.height()) {
            if (!printer.newPage()) {
                painter.end();
                return fail(QStringLiteral("Printer error: the printer stopped during the job."));
            }
            y = 0;
        }
        painter.drawText(QRect(0, y, page.width(), needed.height()), Qt::TextWordWrap, text);
        y += needed.height();
    }
    lines.clear();
    if (!painter.end())
        return fail(QStringLiteral("Printer error: the job could not be sent to the printer."));
    return 0;
}

} // namespace platform
