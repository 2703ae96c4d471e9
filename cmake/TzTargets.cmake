# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# What every target of the project shares: language level, warnings, sanitizers, output folders.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

# Installed, the libraries and the module have a folder of their own: nothing else links them.
set(TZ_LIBRARY_DIR lib/tzauto)
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${TZ_LIBRARY_DIR}")

# A precompiled header is found in the cache only where it may not be looked into for dates and macros.
find_program(TZ_CCACHE ccache)
if(TZ_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_SLOPPINESS=pch_defines,time_macros" "${TZ_CCACHE}")
endif()

# Programs are compiled the way libraries are, so that both can use one precompiled header.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE "-fPIC")

# Debug information stays beside the objects, compressed, so that linking and the linked programs do without it.
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_options(-gsplit-dwarf -gz)
endif()

add_library(tz_options INTERFACE)
target_include_directories(tz_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(tz_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(tz_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
    -Wno-missing-field-initializers)
if(TZ_WARNINGS_AS_ERRORS)
    target_compile_options(tz_options INTERFACE -Werror)
endif()
if(TZ_SANITIZE)
    target_compile_options(tz_options INTERFACE -fsanitize=${TZ_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(tz_options INTERFACE -fsanitize=${TZ_SANITIZE})
    # This check wants the type information of every class a program calls at link time; the module's entry class is
    # only there once the module is loaded.
    target_compile_options(tz_options INTERFACE -fno-sanitize=vptr)
    # Qt compares two empty lists by memcmp of no bytes at a null pointer.
    target_compile_options(tz_options INTERFACE -fno-sanitize=nonnull-attribute)
endif()
if(TZ_COVERAGE)
    target_compile_options(tz_options INTERFACE --coverage)
    target_link_options(tz_options INTERFACE --coverage)
endif()

# The headers that most sources begin with, compiled once per floor of Qt: TzCorePch for what has no windows, TzWindowsPch for
# the rest. A source still includes what it uses: CMAKE_DISABLE_PRECOMPILE_HEADERS builds without them.
file(WRITE "${CMAKE_BINARY_DIR}/pch.cpp.new" "// Only its precompiled header is used.\n")
file(COPY_FILE "${CMAKE_BINARY_DIR}/pch.cpp.new" "${CMAKE_BINARY_DIR}/pch.cpp" ONLY_IF_DIFFERENT)
function(tz_pch name qt)
    add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/pch.cpp")
    # Qt's own types are visible in every target, also in the module's objects, which the tests reach.
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF CXX_VISIBILITY_PRESET default)
    target_link_libraries(${name} PRIVATE tz_options ${qt})
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

set(standard_headers <algorithm> <array> <cmath> <functional> <memory> <optional> <vector>)
set(core_headers ${standard_headers} <QDateTime> <QDir> <QHash> <QLoggingCategory> <QProcess> <QSet> <QStringList> <QTimer>
    <QVariant>)
set(window_headers ${core_headers} <QAbstractItemModel> <QApplication> <QButtonGroup> <QCheckBox> <QComboBox>
    <QDialogButtonBox> <QFormLayout> <QGridLayout> <QGroupBox> <QHeaderView> <QIcon> <QKeyEvent> <QLabel> <QLineEdit> <QMenu>
    <QPainter> <QPushButton> <QShortcut> <QTreeView> <QVBoxLayout>)
tz_pch(TzCorePch Qt6::Core ${core_headers})
tz_pch(TzWindowsPch Qt6::Widgets ${window_headers})

# tz_use_pch(NAME PCH)
function(tz_use_pch name pch)
    target_precompile_headers(${name} REUSE_FROM ${pch})
    tz_compile_rooms_together(${name})
endfunction()

# The sources of a folder are compiled as a few, because most of a source's time goes into the headers that its neighbours
# include too. So a name in an anonymous namespace stands once in a folder. The preset tidy reads every source by itself.
option(TZ_ROOMS_TOGETHER "Compile the sources of a folder together" ON)
set(TZ_TOGETHER_AT_MOST 8)
function(tz_compile_rooms_together name)
    if(NOT TZ_ROOMS_TOGETHER)
        return()
    endif()
    get_target_property(sources ${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$|/main\\.cpp$")
    list(SORT sources)
    set(number 0)
    set(last "")
    foreach(source IN LISTS sources)
        get_filename_component(path "${source}" ABSOLUTE)
        file(RELATIVE_PATH path "${PROJECT_SOURCE_DIR}" "${path}")
        get_filename_component(folder "${path}" DIRECTORY)
        if(NOT folder STREQUAL last)
            set(last "${folder}")
            set(number 0)
        endif()
        string(MAKE_C_IDENTIFIER "${folder}" room)
        math(EXPR batch "${number} / ${TZ_TOGETHER_AT_MOST}")
        math(EXPR number "${number} + 1")
        set_source_files_properties("${source}" PROPERTIES UNITY_GROUP "${room}_${batch}")
    endforeach()
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # An anonymous type in a source's class looks like one in a header.
    target_compile_options(${name} PRIVATE -Wno-subobject-linkage)
endfunction()

# tz_link_all(NAME): a name that no linked library has is an error here and not at a click, so every link list is complete.
function(tz_link_all name)
    if(NOT TZ_SANITIZE)
        target_link_options(${name} PRIVATE LINKER:--no-undefined)
    endif()
endfunction()

# The kinds of sources, as cmake/kinds.txt names them by folder.
set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/kinds.txt")
file(STRINGS "${PROJECT_SOURCE_DIR}/cmake/kinds.txt" kind_lines REGEX "^(window|rule) ")
foreach(line IN LISTS kind_lines)
    string(REPLACE " " ";" words "${line}")
    list(POP_FRONT words kind folder)
    set(TZ_${kind}_IN_${folder} "${words}")
endforeach()

# tz_sources(VARIABLE [KINDS KIND...] ROOMS ROOM...): the sources of these folders and of those below them, so that a new class needs
# no line; of the kinds window, rule and data, or all.
function(tz_sources variable)
    cmake_parse_arguments(arg "" "" "KINDS;ROOMS" ${ARGN})
    set(patterns ${arg_ROOMS})
    list(TRANSFORM patterns APPEND "/*.cpp")
    set(headers ${arg_ROOMS})
    list(TRANSFORM headers APPEND "/*.h")
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${patterns} ${headers})
    if(WIN32)
        list(FILTER found EXCLUDE REGEX "_posix\\.cpp$")
    endif()
    if(arg_KINDS)
        set(kept "")
        foreach(source IN LISTS found)
            tz_kind_of("${source}" kind)
            if(kind IN_LIST arg_KINDS)
                list(APPEND kept "${source}")
            endif()
        endforeach()
        set(found "${kept}")
    endif()
    set(${variable} "${found}" PARENT_SCOPE)
endfunction()

function(tz_kind_of source variable)
    file(RELATIVE_PATH path "${PROJECT_SOURCE_DIR}" "${source}")
    get_filename_component(folder "${path}" DIRECTORY)
    get_filename_component(name "${path}" NAME_WE)
    set(result data)
    if(name MATCHES "^CDlg" OR name IN_LIST TZ_window_IN_${folder} OR "*" IN_LIST TZ_window_IN_${folder})
        set(result window)
    elseif(name IN_LIST TZ_rule_IN_${folder} OR "*" IN_LIST TZ_rule_IN_${folder})
        set(result rule)
    endif()
    set(${variable} ${result} PARENT_SCOPE)
endfunction()

# tz_suite_library(NAME [PCH PCH] [ROOMS ROOM...] [KINDS KIND...] LINK ...): a shared library of the suite. Its sources are
# those of its rooms, or of its folder when no room is given; of the given kinds, or of all kinds.
function(tz_suite_library name)
    cmake_parse_arguments(arg "" "PCH" "ROOMS;KINDS;LINK" ${ARGN})
    if(NOT arg_PCH)
        set(arg_PCH TzWindowsPch)
    endif()
    if(NOT arg_ROOMS)
        set(arg_ROOMS ".")
    endif()
    tz_sources(arg_SOURCES KINDS ${arg_KINDS} ROOMS ${arg_ROOMS})
    add_library(${name} SHARED ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    string(TOUPPER ${name} upper)
    target_compile_definitions(${name} PRIVATE ${upper}_BUILDING)
    target_link_libraries(${name} PUBLIC tz_options ${arg_LINK})
    tz_use_pch(${name} ${arg_PCH})
    tz_link_all(${name})
    install(TARGETS ${name} LIBRARY DESTINATION ${TZ_LIBRARY_DIR})
endfunction()

# tz_tests([NAME name] [PCH PCH] [SOURCES ...] [ALONE TestA ...] LINK ... [LABELS ...] [HELPERS ...] [DEFINITIONS ...] [DEPENDS ...]): every
# Test*.cpp of the folder, or those given, go into one test program of the folder; ctest starts it once for each test class,
# which has the name of its file. LABELS apply to each test. Called again, with a name, it takes the files that earlier calls
# left. A test that links no windows says PCH TzCoreTestPch. ALONE names the tests that are compiled by themselves, because
# another one of the folder has the same short names.
function(tz_tests)
    cmake_parse_arguments(arg "" "NAME;PCH" "SOURCES;ALONE;LINK;LABELS;HELPERS;DEFINITIONS;DEPENDS" ${ARGN})
    get_property(taken GLOBAL PROPERTY TZ_TAKEN_TESTS)
    if(arg_SOURCES)
        list(TRANSFORM arg_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" REGEX "^[^/]")
    else()
        file(GLOB arg_SOURCES CONFIGURE_DEPENDS Test*.cpp)
        list(REMOVE_ITEM arg_SOURCES ${taken})
    endif()
    set_property(GLOBAL APPEND PROPERTY TZ_TAKEN_TESTS ${arg_SOURCES})

    file(RELATIVE_PATH program "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    string(REPLACE "/" "_" program "${program}")
    if(arg_NAME)
        string(APPEND program "_${arg_NAME}")
    endif()
    add_executable(${program} ${arg_SOURCES} ${arg_HELPERS})
    # The module's types are visible here too, so that a class's count of its objects is one number for both.
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests" CXX_VISIBILITY_PRESET default)
    target_link_libraries(${program} PRIVATE tz_options TzTestMain ${arg_LINK} tz_qtest)
    # Also a library that it calls nothing of: the message box comes with the one of the windows.
    target_link_options(${program} PRIVATE LINKER:--no-as-needed)
    target_compile_definitions(${program} PRIVATE ${arg_DEFINITIONS})
    if(arg_DEPENDS)
        add_dependencies(${program} ${arg_DEPENDS})
    endif()
    if(NOT arg_PCH)
        set(arg_PCH TzTestPch)
    endif()
    tz_use_pch(${program} ${arg_PCH})
    list(TRANSFORM arg_ALONE PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(TRANSFORM arg_ALONE APPEND ".cpp")
    set_source_files_properties(${arg_ALONE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    # Nearly always empty, since a test class stands in its source: reading the precompiled header would cost more.
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${program}_autogen/mocs_compilation.cpp" PROPERTIES
        SKIP_PRECOMPILE_HEADERS ON)

    set(names "")
    foreach(source IN LISTS arg_SOURCES)
        get_filename_component(name "${source}" NAME_WE)
        list(APPEND names ${name})
        add_custom_target(${name} DEPENDS ${program})
        add_test(NAME ${name} COMMAND ${program} ${name})
    endforeach()
    add_custom_command(TARGET ${program} POST_BUILD COMMAND ${program} --holds ${names} VERBATIM)
    set_tests_properties(${names} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;QT_LOGGING_RULES=qt.qpa.*=false"
        TIMEOUT 300 LABELS "${arg_LABELS}")
    if("data" IN_LIST arg_LABELS)
        set_tests_properties(${names} PROPERTIES FIXTURES_REQUIRED private_server)
    endif()
endfunction()

# tz_rule_tests(LIBRARY TestA ...): tests of the folder that link that library of rules alone, and so no window and no database.
# Called before the folder's tz_tests. tz_rule_test_programs, at the end of all folders, makes one program for each library.
function(tz_rule_tests library)
    list(TRANSFORM ARGN REPLACE "(.+)" "${CMAKE_CURRENT_SOURCE_DIR}/\\1.cpp" OUTPUT_VARIABLE sources)
    set_property(GLOBAL APPEND PROPERTY TZ_TAKEN_TESTS ${sources})
    set_property(GLOBAL APPEND PROPERTY TZ_TESTS_OF_${library} ${sources})
    set_property(GLOBAL APPEND PROPERTY TZ_TESTED_RULES ${library})
endfunction()

function(tz_rule_test_programs)
    get_property(libraries GLOBAL PROPERTY TZ_TESTED_RULES)
    list(REMOVE_DUPLICATES libraries)
    foreach(library IN LISTS libraries)
        get_property(sources GLOBAL PROPERTY TZ_TESTS_OF_${library})
        tz_tests(NAME ${library} PCH TzCoreTestPch SOURCES ${sources} LINK ${library} LABELS rules)
    endforeach()
endfunction()

# tz_no_database(TestA ...): tests that need no database, though they link what their folder's tests need.
function(tz_no_database)
    set_tests_properties(${ARGN} PROPERTIES LABELS rules FIXTURES_REQUIRED "")
endfunction()
