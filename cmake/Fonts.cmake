# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# The font of the program: Vazirmatn in the cut that draws ASCII digits in Persian shape, so that texts are stored and
# compared with ASCII digits and still read as an office expects. It stands beside the program, which loads every *.ttf of
# share/tzauto/fonts, in the build tree as in an installation. Without it the program uses the system's Noto.

set(TZ_FONT_PACKAGE "${PROJECT_SOURCE_DIR}/node_modules/vazirmatn" CACHE PATH "Unpacked npm package of the font")

set(font_folder "${TZ_FONT_PACKAGE}/misc/UI-Farsi-Digits/fonts/ttf")
set(font_files
    "${font_folder}/Vazirmatn-UI-FD-Regular.ttf"
    "${font_folder}/Vazirmatn-UI-FD-Medium.ttf"
    "${font_folder}/Vazirmatn-UI-FD-Bold.ttf"
    "${TZ_FONT_PACKAGE}/OFL.txt")

if(EXISTS "${font_folder}/Vazirmatn-UI-FD-Regular.ttf")
    foreach(file IN LISTS font_files)
        get_filename_component(name "${file}" NAME)
        configure_file("${file}" "${CMAKE_BINARY_DIR}/share/tzauto/fonts/${name}" COPYONLY)
    endforeach()
    install(FILES ${font_files} DESTINATION ${CMAKE_INSTALL_DATADIR}/tzauto/fonts)
else()
    message(STATUS "No Vazirmatn in ${TZ_FONT_PACKAGE}: the program will use Noto (scripts/setup.sh font fetches it)")
endif()
