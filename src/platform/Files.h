// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// File and folder operations on Windows-form paths, with the results the runtime and the
// file-system object give: 0 for success or the runtime's error number.
//
// The program's own trees are its working folders: the data folder, the program folder, every
// removable drive's root, and whatever a caller adds for the time of one task. No write and no
// delete below a working folder ever goes through a symbolic link, at any level: a path that
// would is refused as a path that can't be used (ErrPermissionDenied, or false). Reading may
// follow links; only regular files are read, so a pipe or a device never blocks the program.
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace platform {

enum FileError : int
{
    ErrNone = 0,
    ErrFileNotFound = 53,
    ErrPermissionDenied = 70,
    ErrDiskNotReady = 71,
    ErrPathFileAccess = 75,
    ErrPathNotFound = 76,
};

// The runtime's FileLen: the size of a regular file, or -1 when it can't be read (missing, a
// folder, no rights).
qint64 FileSize(const QString& path);

// Whole file as bytes; false when it can't be opened for reading or is no regular file.
bool ReadFileBytes(const QString& path, QByteArray& bytes);

// What a bounded read found, for callers that tell the user why a path can't be read.
enum class ReadOutcome
{
    Read,
    Missing,
    NotAFile, // a folder, a pipe, a device
    NotPermitted,
    TooLarge, // more than the limit: nothing more was read
    Failed,
};
// Reads at most `limit` bytes of a regular file.
ReadOutcome ReadFileBounded(const QString& path, qint64 limit, QByteArray& bytes);

// Replaces the file in one step: a temporary file beside it, written, flushed to the disk,
// then renamed over it. A new file gets mode 0600 (the data tree holds passwords), an old one
// keeps its mode. False when any step failed; the old file stays as it was, byte for byte.
// Leftovers of saves that were killed midway are removed from the folder on the way.
bool WriteFileAtomic(const QString& path, const QByteArray& bytes);

// As WriteFileAtomic, for a file of the program's own outside its trees (the registry store):
// a link in the file's place is refused like a folder or a pipe, never followed.
bool WriteOwnFileAtomic(const QString& path, const QByteArray& bytes);

// Removes what saves of the file's folder left behind when they were killed midway (their
// temporary files, which name a process that no longer runs).
void RemoveSaveLeftovers(const QString& path);

// Creates an empty file if none exists (the runtime's open for binary access does that).
bool TouchFile(const QString& path);

// Opens a file of the program's trees to hold a lock on it: made (0600) when missing, never
// through a link below a working folder, only a regular file. The descriptor, or -1.
int OpenLockFile(const QString& path);

// Lines of a text file as the runtime's line input reads them (ends: CR LF, CR or LF).
// Returns ErrNone, or the error number when the file can't be opened.
int ReadLines(const QString& path, QList<QByteArray>& lines);

// Every operation that names a drive letter which is not there (a removed medium) fails with
// ErrDiskNotReady, as a drive without a medium does.

// The runtime's MkDir: makes one folder (mode 0700). ErrPathFileAccess when it exists, ErrPathNotFound when the
// parent is missing.
int MakeFolder(const QString& path);

// The runtime's FileCopy: copies a file over any existing target. ErrFileNotFound for a missing source;
// ErrPathFileAccess, with nothing written, for a source larger than `limit` bytes (when one is given).
int CopyFileTo(const QString& source, const QString& target, qint64 limit = -1);

// The runtime's Kill: deletes a file. A link is removed itself, never what it points to.
int RemoveFile(const QString& path);

// The runtime's Dir for one path: `found` gets the file's name, or stays empty when there is no
// such file. The error number when the drive can't be read.
int FirstFileMatching(const QString& path, QString& found);

// The members of the file-system object that the program uses: GetDriveName, DriveExists,
// FolderExists, DeleteFolder.
QString DriveOfPath(const QString& path);
bool DriveExists(const QString& drive);
bool FolderExists(const QString& path);
// Deletes a folder with all it holds; a link inside goes as a link. Refuses
// (ErrPermissionDenied) a drive root, the home folder, any path with a ".." component, a
// working folder, any folder that holds the home folder or a working folder, and any path that
// reaches through a link below a working folder: a profile name is joined into this path and
// must never reach outside its tree. A folder that is itself a link goes as a link.
int DeleteFolder(const QString& path, bool force);

// True when `folder` is the folder `inner` or holds it, both taken as the system finds them
// (names without regard to case where the exact one is missing, links resolved); a `folder`
// that is not there is taken by its name. False when `inner` is not there.
bool FolderHolds(const QString& folder, const QString& inner);

// Makes a folder one of the working folders for the rest of the run.
void AddWorkingFolder(const QString& path);

// A working folder for the time of one task (the drive being set up), gone with the scope.
class WorkingFolderScope
{
public:
    explicit WorkingFolderScope(const QString& path);
    ~WorkingFolderScope();
    WorkingFolderScope(const WorkingFolderScope&) = delete;
    WorkingFolderScope& operator=(const WorkingFolderScope&) = delete;

private:
    QString folder;
};

// Tests: how many bytes of the named (native) file the disk takes before it is full; -1 for no
// limit. An empty hook takes every byte.
using DiskSpaceHook = std::function<qint64(const QString& nativePath)>;
void SetDiskSpaceHook(DiskSpaceHook hook);

} // namespace platform
