// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Clipboard.h"

#include "platform/CodePage.h"
#include "platform/Runtime.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <map>
#include <vector>

namespace platform {
namespace {

struct Block
{
    std::vector<char> bytes;
    int locks = 0;
};

struct ClipboardState
{
    std::map<HGLOBAL, Block> blocks;
    HGLOBAL nextHandle = 0x1000;
    bool open = false;
    bool heldElsewhere = false;
};

ClipboardState& state()
{
    static ClipboardState s;
    return s;
}

QClipboard* systemClipboard()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ? QGuiApplication::clipboard() : nullptr;
}

// On X11 and Wayland the contents of the clipboard leave with the program that put them there,
// while on the original they stay until somebody replaces them. At the end of a run the text
// we still own is handed to a small keeper, which serves it until another program takes the
// clipboard: on X11 the program's own, which keeps the secret mark; on Wayland wl-copy, which
// offers the text alone. Without a keeper the text goes with us.
void HandOverToKeeper()
{
    QClipboard* clipboard = systemClipboard();
    if (!clipboard || !clipboard->ownsClipboard())
        return;
    const QString text = clipboard->text();
    if (text.isEmpty())
        return;
    QString keeper;
    QStringList arguments;
    const QString platformName = QGuiApplication::platformName();
    if (platformName == QLatin1String("xcb")) {
        const QFileInfo own(QCoreApplication::applicationDirPath() + QStringLiteral("/tolvane-clipboard-keeper"));
        if (own.isFile() && own.isExecutable()) {
            keeper = own.filePath();
        } else {
            // A portable copy on a drive carries the program alone: xclip, where installed, keeps
            // the text, though without the secret mark.
            keeper = QStandardPaths::findExecutable(QStringLiteral("xclip"));
            arguments = { QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-in") };
        }
    } else if (platformName.startsWith(QLatin1String("wayland"))) {
        keeper = QStandardPaths::findExecutable(QStringLiteral("wl-copy"));
    }
    if (keeper.isEmpty())
        return;
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(keeper, arguments);
    if (!process.waitForStarted(2000))
        return;
    process.write(text.toUtf8());
    process.closeWriteChannel();
    // Each keeper reads to the end, takes the clipboard, and leaves a child serving it.
    process.waitForFinished(5000);
}

void PutSecretText(const QString& text)
{
    auto* data = new QMimeData;
    data->setText(text);
    data->setData(QString::fromLatin1(secretHintFormat), QByteArrayLiteral("secret"));
    systemClipboard()->setMimeData(data);
}

} // namespace

TextCopyFailures CopyTextToClipboard(const QString& text)
{
    TextCopyFailures failed;
    const HGLOBAL block = GlobalAlloc(GHND, text.size() + 1);
    char* memory = GlobalLock(block);
    lstrcpy(memory, text);
    if (GlobalUnlock(block) != 0) {
        failed.unlock = true;
    } else {
        if (OpenClipboard(0) == 0) {
            failed.open = true;
            return failed;
        }
        EmptyClipboard();
        SetClipboardData(CF_TEXT, block);
    }
    failed.close = CloseClipboard() == 0;
    return failed;
}

void MarkClipboardSecret()
{
    QClipboard* clipboard = systemClipboard();
    if (!clipboard)
        return;
    const QMimeData* data = clipboard->mimeData();
    if (data && data->hasText() && !data->hasFormat(QString::fromLatin1(secretHintFormat)))
        PutSecretText(data->text());
}

HGLOBAL GlobalAlloc(unsigned flags, qsizetype bytes)
{
    Q_UNUSED(flags); // every block is zero-filled; "moveable" means nothing here
    if (bytes < 0)
        return 0;
    ClipboardState& s = state();
    const HGLOBAL handle = s.nextHandle++;
    s.blocks[handle].bytes.assign(static_cast<size_t>(bytes), '\0');
    return handle;
}

char* GlobalLock(HGLOBAL block)
{
    auto found = state().blocks.find(block);
    if (found == state().blocks.end() || found->second.bytes.empty())
        return nullptr;
    ++found->second.locks;
    return found->second.bytes.data();
}

int GlobalUnlock(HGLOBAL block)
{
    auto found = state().blocks.find(block);
    if (found == state().blocks.end() || found->second.locks == 0)
        return 0;
    return --found->second.locks;
}

char* lstrcpy(char* destination, const QString& source)
{
    if (!destination)
        return nullptr;
    for (auto& [handle, block] : state().blocks) {
        char* begin = block.bytes.data();
        char* end = begin + block.bytes.size();
        if (destination < begin || destination >= end)
            continue;
        const QByteArray bytes = ToCodePage(source);
        const qsizetype room = (end - destination) - 1;
        const qsizetype count = qMin(bytes.size(), room);
        std::copy(bytes.constData(), bytes.constData() + count, destination);
        destination[count] = '\0';
        return destination;
    }
    return nullptr;
}

int OpenClipboard(quintptr owner)
{
    Q_UNUSED(owner);
    ClipboardState& s = state();
    if (s.heldElsewhere || !systemClipboard())
        return 0;
    s.open = true;
    return 1;
}

int EmptyClipboard()
{
    if (!state().open)
        return 0;
    systemClipboard()->clear();
    return 1;
}

HGLOBAL SetClipboardData(unsigned format, HGLOBAL block)
{
    ClipboardState& s = state();
    auto found = s.blocks.find(block);
    if (!s.open || format != CF_TEXT || found == s.blocks.end())
        return 0;
    // The block stays allocated, as on the original, where the clipboard owns it.
    const std::vector<char>& bytes = found->second.bytes;
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    PutSecretText(FromCodePage(QByteArray(bytes.data(), end - bytes.begin())));
    return block;
}

int CloseClipboard()
{
    ClipboardState& s = state();
    if (!s.open)
        return 0;
    s.open = false;
    return 1;
}

void ClipboardClear()
{
    if (QClipboard* clipboard = systemClipboard())
        clipboard->clear();
}

QString ClipboardText()
{
    QClipboard* clipboard = systemClipboard();
    return clipboard ? clipboard->text() : QString();
}

void KeepClipboardAfterExit()
{
    AtEndProcess(&HandOverToKeeper);
}

void SetClipboardHeldElsewhere(bool held)
{
    state().heldElsewhere = held;
}

} // namespace platform
