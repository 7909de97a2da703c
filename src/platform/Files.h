#pragma once
// File and folder operations on Windows-form paths, with the results the runtime and the
// file-system object give: 0 for success or the runtime's error number.
#include <QByteArray>
#include <QString>
#include <QStringList>

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

// Size of a file, or -1 when it can't be read (missing, a folder, no rights).
qint64 FileLen(const QString& path);

// Whole file as bytes; false when it can't be opened for reading.
bool ReadFileBytes(const QString& path, QByteArray& bytes);

// Replaces the file in one step (temporary file beside it, flush, rename). A new file gets
// mode 0600: the data tree holds passwords. False when any step failed; the old file stays.
bool WriteFileAtomic(const QString& path, const QByteArray& bytes);

// Creates an empty file if none exists (the runtime's open for binary access does that).
bool TouchFile(const QString& path);

// Lines of a text file as the runtime's line input reads them (ends: CR LF, CR or LF).
// Returns ErrNone, or the error number when the file can't be opened.
int ReadLines(const QString& path, QList<QByteArray>& lines);

// Every operation that names a drive letter which is not there (a removed medium) fails with
// ErrDiskNotReady, as a drive without a medium does.

// Make one folder (mode 0700). ErrPathFileAccess when it exists, ErrPathNotFound when the
// parent is missing.
int MkDir(const QString& path);

// Copy a file over any existing target. ErrFileNotFound for a missing source.
int FileCopy(const QString& source, const QString& target);

// Delete a file.
int Kill(const QString& path);

// The runtime's Dir for one path: `found` gets the file's name, or stays empty when there is no
// such file. The error number when the drive can't be read.
int Dir(const QString& path, QString& found);

// The members of the file-system object that the program uses.
QString GetDriveName(const QString& path);
bool DriveExists(const QString& drive);
bool FolderExists(const QString& path);
// Deletes a folder with all it holds. Refuses (ErrPermissionDenied) a drive root, the home
// folder, any path with a ".." component, a protected folder and any folder that holds the
// home folder or a protected one: a profile name is joined into this path and must never
// reach outside its tree.
int DeleteFolder(const QString& path, bool force);

// Marks a folder (and so every folder above it) as one that DeleteFolder never removes.
void ProtectFolder(const QString& path);

} // namespace platform
