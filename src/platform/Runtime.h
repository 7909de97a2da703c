// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's services that are not files: ending the process, the unhandled run-time
// error, yielding to pending events, and the start-up calls whose results nobody reads.
#include <QString>

#include <functional>

namespace platform {

// The runtime's standard text for an error number ("File not found" for 53, ...).
QString ErrorText(int number);

// An unhandled run-time error: the number and its text in a critical box titled with the
// program's title, then the work set below, then the process ends. Used wherever a failure has
// no handler.
[[noreturn]] void UnhandledError(int number, const QString& description = QString());

// What an unhandled run-time error does before the process ends (the program saves the vault,
// so that an error ends the run without losing its changes). It runs once.
void SetBeforeErrorEnd(std::function<void()> work);

// Ends the process at once: no window is closed, nothing in memory is written back.
[[noreturn]] void EndProcess(int exitCode = 0);

// Work to do before EndProcess ends the process (handing the clipboard over to a keeper).
void AtEndProcess(std::function<void()> work);

// Tests replace the ending (it must not return: throw, or end the process).
void SetEndProcessHook(std::function<void(int)> hook);

// What to do when the session ends or somebody asks the program to end (SIGTERM, SIGINT,
// SIGHUP): run on the user-interface thread, as the original's windows are unloaded when
// Windows shuts down or the user logs off.
void OnTerminationRequest(std::function<void()> handler);

// Lets pending window events run (the runtime's DoEvents).
void ProcessPendingEvents();

// As ProcessPendingEvents, but waits until there is at least one event: the turn of a loop that polls
// something the events will change (a request on the network), without spinning.
void ProcessEventsWaiting();

// The yield of a long loop, called at every step: pending events run at once when the last
// yield is a millisecond or more ago, so a click is served within a millisecond while a walk
// over 32,767 bytes doesn't spend a hundred milliseconds asking an empty queue.
void YieldStep();

// As YieldStep, but the user's clicks and keys wait for the next ordinary turn of the event
// loop: the yield of a save's walk, in whose middle no command may act.
void YieldStepHoldingInput();

// The runtime's Time and Date as text: the system's short forms, for showing only.
QString TimeOfDayText();
QString DateText();

// The runtime's conversion of a text given to a whole-number property (CInt): blanks around it, a
// decimal number (with exponent, rounded half to even) or &H / &O. False for a text that is
// no number (above all the empty one) or lies outside 16 bits.
bool WholeNumberFromText(const QString& text, int& value);

// The program's version as the runtime's App object gives it (App.Major, App.Minor,
// App.Revision): the build's project version.
int VersionMajor();
int VersionMinor();
int VersionRevision();

// The toolkit's own texts (the buttons of message boxes, its file and print dialogs) in this
// language, "pl", "de" or "en", from the system's Qt translations; English when they are
// missing.
void UseToolkitLanguage(const QString& language);

// The computer's name (GetComputerNameA); empty when it can't be had.
QString ComputerName();

// Starts a program ("\tolvane.exe" behind the program's folder, and the like) with its
// parameters. Returns a value above 32 on success, as ShellExecuteA does.
int StartProgram(const QString& file, const QString& parameters);

} // namespace platform
