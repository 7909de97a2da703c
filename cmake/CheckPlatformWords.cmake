# SPDX-License-Identifier: GPL-3.0-or-later
# The original Windows platform's names (its API calls, constants and types, the runtime's
# statements and control events) belong in src/platform/, the one layer that stands in for
# that platform. Above it, code says what it does in Qt's words: this fails on any such name,
# as a whole word, in the code (comments aside) of a file above src/platform/.
# Run as: cmake -DSOURCE_DIR=<src> -P CheckPlatformWords.cmake
cmake_minimum_required(VERSION 3.20)
set(words
    # the shell, the tray, the clipboard's memory, window messages
    "ShellExecuteA|Shell_NotifyIconA|NOTIFYICONDATA|NIM_[A-Z]+|SetForegroundWindow|SE_ERR_[A-Z]+|RUNDLL32|OpenAs_RunDLL"
    "GlobalAlloc|GlobalLock|GlobalUnlock|lstrcpy|OpenClipboard|EmptyClipboard|SetClipboardData|CloseClipboard"
    "SendMessageA?|PostMessageA?|WM_[A-Z]+|HWND|LPSTR|LPCSTR|DWORD|MAX_PATH|IDC_[A-Z]+|SetCursor|LoadCursorA"
    # message boxes and the registry
    "MsgBox|MessageBoxA|MB_[A-Z0-9_]+|ID(OK|CANCEL|ABORT|RETRY|IGNORE|YES|NO)"
    "HKEY|HKEY_[A-Z_]+|REG_[A-Z_]+|KEY_[A-Z_]+|ERROR_[A-Z_]+|Reg[A-Za-z]+A|RegCloseKey"
    # dialogs, files, the computer's name, start-up calls
    "GetOpenFileNameA|GetSaveFileNameA|SHBrowseForFolderA|OFN_[A-Z]+|GetPrivateProfileStringA|WritePrivateProfileStringA"
    "GetComputerNameA|GetDriveName|InitCommonControls|InitCommonControlsEx|CreateMutexA|MD5Init|MD5Update|MD5Final"
    # the runtime's statements, functions and constants, and the controls' members and events
    "DoEvents|Randomize|Rnd|CInt|MkDir|FileCopy|FileLen|Kill|Dir|PrevInstance|AppPath|vb[A-Z][A-Za-z]+"
    "ListCount|ListIndex|AddItem|RemoveItem|Click|DblClick|LostFocus|GotFocus|SetFocus|PropertyBag|ReadProperties"
    "WriteProperties|PropertyChanged|ReadProperty|WriteProperty|EndDoc|StillExecuting|GetChunk|GetHeader")
list(JOIN words "|" pattern)
set(pattern "^(${pattern})$")
set(LAYERS program tool windows widgets core)
file(GLOB_RECURSE sources RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/*.h" "${SOURCE_DIR}/*.cpp")
set(faults "")
foreach(source IN LISTS sources)
    string(REGEX MATCH "^[a-z]+" layer "${source}")
    if(NOT layer IN_LIST LAYERS)
        continue()
    endif()
    file(READ "${SOURCE_DIR}/${source}" code)
    string(REGEX REPLACE "//[^\n]*" "" code "${code}")
    string(REGEX MATCHALL "[A-Za-z_][A-Za-z_0-9]*" tokens "${code}")
    list(REMOVE_DUPLICATES tokens)
    foreach(token IN LISTS tokens)
        if(token MATCHES "${pattern}")
            list(APPEND faults "${source} says ${token}")
        endif()
    endforeach()
endforeach()
if(faults)
    list(JOIN faults "\n" said)
    message(FATAL_ERROR "The original platform's names above src/platform/:\n${said}")
endif()
message(STATUS "No original platform's name above src/platform/")
