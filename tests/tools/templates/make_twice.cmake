# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

foreach(round first second)
    file(REMOVE_RECURSE "${FOLDER}/${round}")
    # Another seed for each: nothing may hang on the order of a set.
    set(ENV{PYTHONHASHSEED} 1)
    if(round STREQUAL "second")
        set(ENV{PYTHONHASHSEED} 2)
    endif()
    execute_process(COMMAND "${PYTHON}" -B "${SCRIPT}" "${FOLDER}/${round}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()

file(GLOB made RELATIVE "${FOLDER}/first" "${FOLDER}/first/*.docx")
list(LENGTH made count)
if(NOT count EQUAL 4)
    message(FATAL_ERROR "four templates are made, not ${count}")
endif()
foreach(name IN LISTS made)
    execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${FOLDER}/first/${name}" "${FOLDER}/second/${name}"
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
