# Holds the include check itself against a small tree: it must name the bad includes and no others.
#
#   cmake -D CHECK=<include_check.cmake> -D TREE=<scratch folder> -P include_check_test.cmake

cmake_minimum_required(VERSION 3.25)

# Each row: a file, and what it includes.
set(fine
    "core/a.h <string>"
    "core/a.h <sys/stat.h>"
    "core/a.h \"core/ports/ui.h\""
    "model/a.cpp \"core/text.h\""
    "auxiliary/a.cpp \"model/a.h\""
    "import/a.cpp \"auxiliary/a.h\""
    "editors/a.cpp \"spreadsheet/a.h\""
    "workspace/a.cpp \"editors/a.h\""
    "windows/run/a.cpp <QWidget>"
    "windows/run/a.cpp \"ui_frmrun.h\""
    "windows/run/a.cpp \"workspace/a.h\""
    "windows/run/a.cpp \"windows/core/a.h\""
    "windows/run/a.cpp \"windows/spreadsheet/a.h\""
    "windows/run/a.cpp \"windows/run/a.h\"")
set(bad
    "core/a.h \"model/project_data.h\""
    "core/a.h <model/hydro_input.h>"
    "core/ports/b.h \"QString\""
    "model/a.cpp <QtCore/QString>"
    "model/a.cpp <qcustomplot.h>"
    "model/a.cpp \"import/browse_file.h\""
    "model/a.cpp \"a.h\""
    "model/a.cpp \"cellar/a.h\""
    "import/a.cpp \"workspace/a.h\""
    "spreadsheet/a.cpp \"model/a.h\""
    "run/a.cpp \"import/a.h\""
    "editors/a.cpp \"workspace/a.h\""
    "workspace/a.cpp \"windows/workspace/a.h\""
    "windows/run/a.cpp \"windows/workspace/a.h\""
    "windows/run/a.cpp \"a.h\""
    "windows/core/a.cpp \"windows/run/a.h\"")

file(REMOVE_RECURSE ${TREE})
file(WRITE ${TREE}/cellar/a.h "")
foreach(row IN LISTS fine bad)
  string(REPLACE " " ";" parts "${row}")
  list(GET parts 0 file)
  list(GET parts 1 include)
  file(APPEND ${TREE}/${file} "  # include ${include}\n")
endforeach()

execute_process(COMMAND ${CMAKE_COMMAND} -D SOURCES=${TREE} -P ${CHECK}
                RESULT_VARIABLE result ERROR_VARIABLE errors)
string(REGEX MATCHALL "[a-z/]+\\.(h|cpp): [^:\n]+" found "${errors}")
set(expected ${bad})
list(TRANSFORM expected REPLACE "[<>\"]" "")
list(TRANSFORM expected REPLACE " " ": ")
list(APPEND expected "cellar/a.h: stands in no room that is known here")
list(SORT expected)
list(SORT found)
if(result EQUAL 0 OR NOT found STREQUAL expected)
  message(FATAL_ERROR "result ${result}, expected:\n${expected}\nfound:\n${found}\nin:\n${errors}")
endif()
