# SPDX-License-Identifier: GPL-3.0-or-later
# The COMMANDS section of tolvane-vault(1), for help2man: every command the overview lists, with
# its own help as `tolvane-vault COMMAND --help` prints it, so that the page never tells other
# options than the tool has.
# Run as: cmake -DTOOL=<tolvane-vault> -DOUTPUT=<file.h2m> -P CommandManual.cmake
cmake_minimum_required(VERSION 3.20)
execute_process(COMMAND ${TOOL} --help OUTPUT_VARIABLE overview RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "${TOOL} --help failed")
endif()
# The overview's command lines: two blanks, then the command's name.
string(REGEX MATCHALL "\n  [a-z]+[ \n]" listed "${overview}")
set(commands "")
foreach(line IN LISTS listed)
    string(STRIP "${line}" line)
    string(REGEX REPLACE " .*" "" command "${line}")
    list(APPEND commands ${command})
endforeach()
list(REMOVE_DUPLICATES commands)
set(page "[COMMANDS]\nEach command's own help, as \\fBtolvane-vault\\fR \\fICOMMAND\\fR \\fB\\-\\-help\\fR prints it.\n")
foreach(command IN LISTS commands)
    execute_process(COMMAND ${TOOL} ${command} --help OUTPUT_VARIABLE help RESULT_VARIABLE failed)
    if(failed)
        message(FATAL_ERROR "${TOOL} ${command} --help failed")
    endif()
    # Plain text in roff: backslashes escaped, dashes that stay ASCII in options, no line taken
    # for a request.
    string(REPLACE "\\" "\\e" help "${help}")
    string(REPLACE "-" "\\-" help "${help}")
    string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" help "${help}")
    string(APPEND page ".SS ${command}\n.nf\n${help}.fi\n")
endforeach()
file(WRITE ${OUTPUT} "${page}")
