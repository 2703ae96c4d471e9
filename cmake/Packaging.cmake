# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# What is installed besides the targets, and the .deb: packaging/build-deb.sh.

install(FILES packaging/tzhost.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/io.tzauto.tzhost.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES resources/icons/tzauto.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
    RENAME tzhost.svg)
install(FILES README.md SECURITY.md packaging/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tzauto)
install(FILES packaging/tzhost.bash-completion DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tzhost)

# As Debian wants its texts: packed, and the same bytes at every build.
function(tz_install_packed source folder name)
    set(packed "${PROJECT_BINARY_DIR}/packaging/${name}.gz")
    add_custom_command(OUTPUT "${packed}" COMMAND gzip -9nc "${PROJECT_SOURCE_DIR}/${source}" > "${packed}"
        DEPENDS "${PROJECT_SOURCE_DIR}/${source}" VERBATIM)
    set_property(GLOBAL APPEND PROPERTY tz_packed "${packed}")
    install(FILES "${packed}" DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder})
endfunction()
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/packaging")
tz_install_packed(packaging/tzhost.1 man/man1 tzhost.1)
tz_install_packed(packaging/tz-demo-data.1 man/man1 tz-demo-data.1)
tz_install_packed(CHANGELOG.md doc/tzauto changelog)
tz_install_packed(packaging/changelog doc/tzauto changelog.Debian)
get_property(packed GLOBAL PROPERTY tz_packed)
add_custom_target(tz_packed ALL DEPENDS ${packed})

# What packages.txt names for running the program; the linked libraries come from dpkg-shlibdeps.
file(STRINGS packages.txt lines)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS packages.txt)
set(section "")
set(packages_of_run "")
set(packages_of_recommended "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "[ \t]*#.*$" "" line "${line}")
    if(line MATCHES "^.(run|recommended).$")
        set(section "${CMAKE_MATCH_1}")
    elseif(line MATCHES "^[^a-z0-9]")
        set(section "")
    elseif(section AND line)
        list(APPEND packages_of_${section} "${line}")
    endif()
endforeach()
list(JOIN packages_of_run ", " runtime_packages)
list(JOIN packages_of_recommended ", " recommended_packages)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tzauto)
set(CPACK_PACKAGE_VENDOR "The TzAuto team")
set(CPACK_PACKAGE_CONTACT "The TzAuto team <team@tzauto.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "contracts, commissions and accounts of a car dealership")
set(CPACK_PACKAGE_DESCRIPTION
    "TzAuto runs the office of a car showroom in Persian, with the Shamsi calendar:
contracts with the dealer's commission, tax and duty, a balanced accounting
document behind each of them, persons, users and their rights. It brings its
own database server, or works with the server of the office.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${runtime_packages}")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "${recommended_packages}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
