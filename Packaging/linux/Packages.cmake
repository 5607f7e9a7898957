# `cpack` in the build folder makes two Debian packages: the program, and apart from it the plug-in
# for the calendar service, so that the program does not bring that service's libraries along.
set(components panorel)
if(TARGET panorel-evolution)
    list(APPEND components panorel-evolution)
endif()

set(notes ${CMAKE_INSTALL_DATADIR}/doc)
foreach(package IN LISTS components)
    install(FILES debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz
        DESTINATION ${notes}/${package} COMPONENT ${package}-debian EXCLUDE_FROM_ALL)
    list(APPEND all ${package} ${package}-debian)
    string(TOUPPER ${package} PACKAGE)
    set(CPACK_COMPONENT_${PACKAGE}_GROUP ${package})
    set(CPACK_COMPONENT_${PACKAGE}-DEBIAN_GROUP ${package})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL ${all})
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_PACKAGE_NAME panorel)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Panorel authors")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/package)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 0panorel1) # older than one that a distribution makes
set(CPACK_DEBIAN_PACKAGE_MAINTAINER
    "Seed 2d650b3e maintainers <maintainers@users.noreply.c-seed-2d650b3e.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PANOREL_PACKAGE_NAME panorel)
set(CPACK_DEBIAN_PANOREL_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_PANOREL_PACKAGE_SUGGESTS panorel-evolution)
set(CPACK_DEBIAN_PANOREL_DESCRIPTION "keep every window where you left it
For each set of connected displays, Panorel learns where the windows sit.
When displays come and go (a laptop is undocked, a monitor falls asleep) it
waits until they have settled and puts every window back: the same place to
the pixel, the same stacking order, the focus untouched.
.
Arrangements can be kept as scenes, applied by key, at a time of day or
before a meeting; one key hides the whole desk and brings it back.
.
It needs an X11 session with a window manager that follows EWMH.")

set(CPACK_DEBIAN_PANOREL-EVOLUTION_PACKAGE_NAME panorel-evolution)
set(CPACK_DEBIAN_PANOREL-EVOLUTION_PACKAGE_DEPENDS
    "panorel (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_PANOREL-EVOLUTION_PACKAGE_RECOMMENDS evolution-data-server)
set(CPACK_DEBIAN_PANOREL-EVOLUTION_DESCRIPTION "meetings of Evolution's calendars for Panorel
Panorel keeps every window where its user left it and can apply a scene, a
saved arrangement of windows, before a meeting.
.
With this plug-in it finds the meetings in the calendars of Evolution Data
Server, which GNOME and other desktops share, and not only in .ics files.")
include(CPack)
