# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# The font of the program: Vazirmatn in the cut that draws ASCII digits in Persian shape, so that texts are stored and
# compared with ASCII digits and still read as an office expects. Its contextual alternates are taken out (docs/adr/0030). The
# folder codes/ holds the cut that draws them in Latin shape, for codes of Latin letters. Both stand beside the program, which
# loads every *.ttf of share/tzauto/fonts, in the build tree as in an installation. Without them the program uses the system's
# Noto. The licence reserves no name of the font, and stands beside the changed files as it demands.

set(TZ_FONT_PACKAGE "${PROJECT_SOURCE_DIR}/node_modules/vazirmatn" CACHE PATH "Unpacked npm package of the font")

set(font_folder "${TZ_FONT_PACKAGE}/misc/UI-Farsi-Digits/fonts/ttf")
set(code_font_folder "${TZ_FONT_PACKAGE}/misc/UI/fonts/ttf")
set(font_script "${PROJECT_SOURCE_DIR}/tools/fonts/letters_as_typed.py")
set(font_target "${CMAKE_BINARY_DIR}/share/tzauto/fonts")

# When the build is configured, so that every test finds them.
function(tz_font source target)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}" "${font_script}")
    if("${source}" IS_NEWER_THAN "${target}" OR "${font_script}" IS_NEWER_THAN "${target}")
        get_filename_component(folder "${target}" DIRECTORY)
        file(MAKE_DIRECTORY "${folder}")
        execute_process(COMMAND "${Python3_EXECUTABLE}" -B "${font_script}" "${source}" "${target}" COMMAND_ERROR_IS_FATAL ANY)
    endif()
endfunction()

if(EXISTS "${font_folder}/Vazirmatn-UI-FD-Regular.ttf")
    foreach(weight IN ITEMS Regular Medium Bold)
        tz_font("${font_folder}/Vazirmatn-UI-FD-${weight}.ttf" "${font_target}/Vazirmatn-UI-FD-${weight}.ttf")
        tz_font("${code_font_folder}/Vazirmatn-UI-${weight}.ttf" "${font_target}/codes/Vazirmatn-UI-${weight}.ttf")
    endforeach()
    configure_file("${TZ_FONT_PACKAGE}/OFL.txt" "${font_target}/OFL.txt" COPYONLY)
    configure_file("${PROJECT_SOURCE_DIR}/tools/fonts/CHANGES.txt" "${font_target}/CHANGES.txt" COPYONLY)
    install(DIRECTORY "${font_target}/" DESTINATION ${CMAKE_INSTALL_DATADIR}/tzauto/fonts)
else()
    message(STATUS "No Vazirmatn in ${TZ_FONT_PACKAGE}: the program will use Noto (scripts/setup.sh font fetches it)")
endif()
