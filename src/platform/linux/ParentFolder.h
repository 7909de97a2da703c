// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The folder that holds a path's last component, opened for an operation on that component.
// Below a working folder it is reached one level at a time without following any link, so
// that a link planted anywhere below (a stick somebody else prepared, a profile named
// "lnk\sub") can't turn a write or a delete towards another place. Above the working folder,
// and for paths outside every working folder, the system's own lookup is used.
#include <QByteArray>
#include <QString>
#include <QStringList>

namespace platform {

class ParentFolder
{
public:
    // `native` is an absolute native path; `workingFolders` are native folders.
    ParentFolder(const QString& native, const QStringList& workingFolders);
    ~ParentFolder();
    ParentFolder(const ParentFolder&) = delete;
    ParentFolder& operator=(const ParentFolder&) = delete;

    // The folder's descriptor, or -1 when it could not be reached; error() then says why.
    int fd() const { return folder; }
    int error() const { return failure; }
    // The last component as the file system spells it.
    const QByteArray& name() const { return last; }
    // True below a working folder: the last component must not be followed either.
    bool confined() const { return below; }

private:
    int folder = -1;
    int failure = 0;
    QByteArray last;
    bool below = false;
};

// The components of a native absolute path, without empty ones.
QStringList PathComponents(const QString& native);

} // namespace platform
