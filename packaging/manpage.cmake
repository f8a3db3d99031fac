# Writes the man page from the program's own --help text, so the two never disagree.
# cmake -DVANTOREL=<executable> -DVERSION=<x.y.z> -DOUT=<file.1> -P manpage.cmake
execute_process(COMMAND ${VANTOREL} --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${VANTOREL} --help failed: ${status}")
endif()
# roff: a backslash is written \e; a line may not start with a dot or an apostrophe.
string(REPLACE "\\" "\\e" help "${help}")
string(REGEX REPLACE "\n([.'])" "\n\\\\&\\1" help "${help}")
string(REGEX REPLACE "^Usage: ([^\n]*)\n" "" body "${help}")
string(REGEX MATCH "^Usage: ([^\n]*)" usage "${help}")
set(synopsis "${CMAKE_MATCH_1}")
file(WRITE ${OUT} ".TH VANTOREL 1 \"\" \"Vantorel ${VERSION}\" \"User Commands\"
.SH NAME
vantorel \\- script-driven batch photo converter and editor
.SH SYNOPSIS
.B ${synopsis}
.SH DESCRIPTION
Without items, or with items but without /exit, the workbench window opens when there is a
display. With /exit the batch runs and the program ends.
.PP
.nf
${body}.fi
.SH FILES
.TP
.I <prefix>/share/vantorel/data/template.txt
the script template the command line is filled into
.TP
.I ~/.config/Kestrane/Vantorel 3 Caldrith.ini
the workbench's settings
")
