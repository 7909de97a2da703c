#include "platform/Instance.h"

#include "platform/Paths.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QTimer>

#include <memory>
#include <unistd.h>

namespace platform {
namespace {

QString lockPath()
{
    QString folder = QString::fromLocal8Bit(qgetenv("TOLVANE_RUNTIME_DIR"));
    if (folder.isEmpty())
        folder = QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR"));
    if (folder.isEmpty())
        folder = QStringLiteral("/tmp/tolvane-%1").arg(getuid());
    QDir().mkpath(folder);
    QString exe = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).canonicalFilePath();
    const QByteArray id = QCryptographicHash::hash(exe.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    return folder + QStringLiteral("/tolvane-") + QString::fromLatin1(id) + QStringLiteral(".lock");
}

std::unique_ptr<QLockFile>& lock()
{
    static std::unique_ptr<QLockFile> l;
    return l;
}

bool tryClaim()
{
    if (!lock())
        lock() = std::make_unique<QLockFile>(lockPath());
    if (lock()->isLocked())
        return true;
    lock()->setStaleLockTime(0);
    return lock()->tryLock(0);
}

} // namespace

bool PrevInstance()
{
    return !tryClaim();
}

void ClaimInstanceWhenFree()
{
    if (tryClaim())
        return;
    auto* timer = new QTimer;
    timer->setInterval(200);
    QObject::connect(timer, &QTimer::timeout, timer, [timer] {
        if (tryClaim())
            timer->deleteLater();
    });
    timer->start();
}

} // namespace platform
