// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One lock per data tree, in a file of the tree's top folder: the program holds it from its
// login to its end, whatever folder it was started from, and the command-line tool around each
// change it writes, so that neither writes over what the other has read. The file has two
// parts: the program's, held for the run, and the writers', held by a tool for its whole read,
// change and write and by the program only for the moment it takes its own. A tool that finds
// the program's part held while it holds the writers' knows that the holder is a program.
#include <QString>

namespace platform {

enum class TreeLock
{
    Taken,
    ProgramRuns, // a program holds the tree
    Unavailable, // no lock could be made there (no folder, no rights, something else in its place)
};

// The program: the lock of the tree whose top folder is `dataFolder` (Windows form), kept to the
// end of the process. Waits while a tool writes; waits up to `patienceMs` for another program
// to let go (a restart, while the old copy goes down). Asked again for the same tree, Taken.
TreeLock HoldTreeForRun(const QString& dataFolder, int patienceMs = 0);
// Lets the run's lock go (the tests end runs without ending the process).
void ReleaseTreeForRun();

// The tool: the lock for one change, waiting while another tool writes, refused while a program
// holds the tree. Let go with the object.
class TreeWriteLock
{
public:
    explicit TreeWriteLock(const QString& dataFolder);
    ~TreeWriteLock();
    TreeWriteLock(const TreeWriteLock&) = delete;
    TreeWriteLock& operator=(const TreeWriteLock&) = delete;

    TreeLock State() const { return state; }

private:
    int fd = -1;
    TreeLock state = TreeLock::Unavailable;
};

} // namespace platform
