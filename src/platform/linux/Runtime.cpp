// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Runtime.h"

#include "platform/MessageBox.h"
#include "platform/Paths.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>
#include <QProcess>
#include <QSocketNotifier>
#include <QSysInfo>
#include <QTime>
#include <QTranslator>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace platform {
namespace {

std::function<void(int)>& endHook()
{
    static std::function<void(int)> hook;
    return hook;
}

std::vector<std::function<void()>>& endWork()
{
    static std::vector<std::function<void()>> work;
    return work;
}

std::function<void()>& beforeErrorEnd()
{
    static std::function<void()> work;
    return work;
}

} // namespace

QString ErrorText(int number)
{
    static const QHash<int, QString> texts {
        { 3, QStringLiteral("Return without GoSub") },
        { 5, QStringLiteral("Invalid procedure call or argument") },
        { 6, QStringLiteral("Overflow") },
        { 7, QStringLiteral("Out of memory") },
        { 9, QStringLiteral("Subscript out of range") },
        { 11, QStringLiteral("Division by zero") },
        { 13, QStringLiteral("Type mismatch") },
        { 48, QStringLiteral("Error in loading DLL") },
        { 52, QStringLiteral("Bad file name or number") },
        { 53, QStringLiteral("File not found") },
        { 55, QStringLiteral("File already open") },
        { 57, QStringLiteral("Device I/O error") },
        { 58, QStringLiteral("File already exists") },
        { 61, QStringLiteral("Disk full") },
        { 62, QStringLiteral("Input past end of file") },
        { 67, QStringLiteral("Too many files") },
        { 68, QStringLiteral("Device unavailable") },
        { 70, QStringLiteral("Permission denied") },
        { 71, QStringLiteral("Disk not ready") },
        { 75, QStringLiteral("Path/File access error") },
        { 76, QStringLiteral("Path not found") },
        { 321, QStringLiteral("Invalid file format") },
        { 481, QStringLiteral("Invalid picture") },
        { 32755, QStringLiteral("Cancel was selected.") },
    };
    return texts.value(number, QStringLiteral("Application-defined or object-defined error"));
}

void UnhandledError(int number, const QString& description)
{
    const QString text = description.isEmpty() ? ErrorText(number) : description;
    ShowMessage(QStringLiteral("Run-time error '%1':\n\n%2").arg(number).arg(text), MessageIcon::Critical, AppTitle());
    // Taken out before it runs: an error inside it ends the process without running it again.
    if (const std::function<void()> work = std::exchange(beforeErrorEnd(), {}))
        work();
    EndProcess(number);
}

void SetBeforeErrorEnd(std::function<void()> work)
{
    beforeErrorEnd() = std::move(work);
}

void SetEndProcessHook(std::function<void(int)> hook)
{
    endHook() = std::move(hook);
}

void AtEndProcess(std::function<void()> work)
{
    endWork().push_back(std::move(work));
}

void EndProcess(int exitCode)
{
    for (const std::function<void()>& work : endWork())
        work();
    if (endHook())
        endHook()(exitCode);
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

namespace {

int terminationPipe[2] = { -1, -1 };

void signalled(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(terminationPipe[0], &byte, 1);
}

} // namespace

void OnTerminationRequest(std::function<void()> handler)
{
    // The signal only writes a byte; the handler runs when the event loop reads it.
    if (terminationPipe[0] < 0 && ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, terminationPipe) != 0)
        return;
    auto* notifier = new QSocketNotifier(terminationPipe[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, handler = std::move(handler)] {
        char byte = 0;
        [[maybe_unused]] const ssize_t read = ::read(terminationPipe[1], &byte, 1);
        notifier->setEnabled(false); // once: a second signal while ending changes nothing
        handler();
    });
    struct sigaction action
    {
    };
    action.sa_handler = signalled;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int signal : { SIGTERM, SIGINT, SIGHUP })
        ::sigaction(signal, &action, nullptr);
}

void ProcessPendingEvents()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

void ProcessEventsWaiting()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

namespace {

void yieldStep(QEventLoop::ProcessEventsFlags flags)
{
    static QElapsedTimer sinceLast;
    if (sinceLast.isValid() && sinceLast.nsecsElapsed() < 1000000)
        return;
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(flags);
    sinceLast.start();
}

} // namespace

void YieldStep()
{
    yieldStep(QEventLoop::AllEvents);
}

void YieldStepHoldingInput()
{
    yieldStep(QEventLoop::ExcludeUserInputEvents);
}

QString TimeOfDayText()
{
    // The short form without seconds would lose what the runtime's Time shows.
    QString format = QLocale::system().timeFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1Char('s')))
        format.replace(QStringLiteral("mm"), QStringLiteral("mm:ss"));
    return QLocale::system().toString(QTime::currentTime(), format);
}

bool WholeNumberFromText(const QString& text, int& value)
{
    const QString t = text.trimmed();
    double number = 0;
    bool ok = false;
    if (t.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)
        || t.startsWith(QLatin1String("&O"), Qt::CaseInsensitive)) {
        const int base = t.at(1).toUpper() == QLatin1Char('H') ? 16 : 8;
        const qlonglong raw = t.mid(2).toLongLong(&ok, base);
        // Four hex digits are a 16-bit pattern: &HFFFF is -1.
        number = static_cast<double>(raw <= 0xFFFF && raw > 0x7FFF ? raw - 0x10000 : raw);
    } else {
        number = QLocale::c().toDouble(t, &ok);
    }
    if (!ok)
        return false;
    const double rounded = std::nearbyint(number); // the default rounding: half to even
    if (rounded < -32768 || rounded > 32767)
        return false;
    value = static_cast<int>(rounded);
    return true;
}

int VersionMajor()
{
    return TOLVANE_VERSION_MAJOR;
}

int VersionMinor()
{
    return TOLVANE_VERSION_MINOR;
}

int VersionRevision()
{
    return TOLVANE_VERSION_PATCH;
}

void UseToolkitLanguage(const QString& language)
{
    static QTranslator* translator = nullptr;
    if (translator) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
        translator = nullptr;
    }
    auto* loaded = new QTranslator;
    if (language == QLatin1String("en")
        || !loaded->load(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete loaded;
        return;
    }
    QCoreApplication::installTranslator(loaded);
    translator = loaded;
}

QString ComputerName()
{
    return QSysInfo::machineHostName();
}

QString DateText()
{
    return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat);
}

int StartProgram(const QString& file, const QString& parameters)
{
    const QString native = ToNative(file);
    if (native.isEmpty() || !QFileInfo(native).isFile())
        return 2;
    const QStringList args = parameters.isEmpty() ? QStringList() : QProcess::splitCommand(parameters);
    return QProcess::startDetached(native, args, QFileInfo(native).absolutePath()) ? 42 : 31;
}

} // namespace platform
