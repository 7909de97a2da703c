#include "platform/Dialogs.h"

#include "platform/Paths.h"

#include <QApplication>
#include <QFileDialog>

namespace platform {
namespace {

OpenFileBackend& openFileBackend()
{
    static OpenFileBackend b;
    return b;
}

std::function<void()>& beepHook()
{
    static std::function<void()> h;
    return h;
}

// "Images|*.jpg;*.gif|All|*.*" -> "Images (*.jpg *.gif);;All (*.*)"
QString QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts.at(i + 1);
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        // A description that already shows its patterns keeps them, in the dialog's own form.
        QString description = parts.at(i);
        const qsizetype paren = description.indexOf(QLatin1Char('('));
        if (paren > 0)
            description = description.left(paren).trimmed();
        out << QStringLiteral("%1 (%2)").arg(description, patterns);
    }
    return out.join(QStringLiteral(";;"));
}

} // namespace

QString ShowOpenFile(QWidget* owner, const QString& title, const QString& filter)
{
    if (openFileBackend())
        return openFileBackend()({ title, filter });
    const QString chosen = QFileDialog::getOpenFileName(owner, title, QString(), QtFilter(filter));
    return chosen.isEmpty() ? QString() : ToWindows(chosen);
}

void SetOpenFileBackend(OpenFileBackend backend)
{
    openFileBackend() = std::move(backend);
}

void Beep()
{
    if (beepHook())
        beepHook()();
    else
        QApplication::beep();
}

void SetBeepHook(std::function<void()> hook)
{
    beepHook() = std::move(hook);
}

} // namespace platform
