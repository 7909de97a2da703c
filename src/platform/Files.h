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

// Make one folder (mode 0700). ErrPathFileAccess when it exists, ErrPathNotFound when the
// parent is missing.
int MkDir(const QString& path);

// Copy a file over any existing target. ErrFileNotFound for a missing source.
int FileCopy(const QString& source, const QString& target);

// Delete a file.
int Kill(const QString& path);

// The members of the file-system object that the program uses.
QString GetDriveName(const QString& path);
bool DriveExists(const QString& drive);
bool FolderExists(const QString& path);
// Deletes a folder with all it holds. Refuses (ErrPermissionDenied) a drive root, the home
// folder, any path with a ".." component, and any folder that holds the home folder: a
// profile name is joined into this path and must never reach outside its tree.
int DeleteFolder(const QString& path, bool force);

} // namespace platform
