# How the program becomes Panorel.app. On a Mac only.

include(${CMAKE_CURRENT_LIST_DIR}/InfoPlist.cmake)

set(PANOREL_SIGNING_IDENTITY "-" CACHE STRING
    "The certificate that the installed bundle is signed with; - signs without one")

# panorel_bundle(TARGET): with its Info.plist and icon; installing it copies Qt and Sparkle into it
# and signs it. Called from the folder that made the target.
function(panorel_bundle target)
    set(packaging ${PROJECT_SOURCE_DIR}/Packaging)
    set(plist ${CMAKE_CURRENT_BINARY_DIR}/Info.plist)
    panorel_info_plist(${plist} "${PANOREL_UPDATE_FEED}" "${PANOREL_UPDATE_KEY}")
    set_target_properties(${target} PROPERTIES
        MACOSX_BUNDLE ON OUTPUT_NAME Panorel MACOSX_BUNDLE_INFO_PLIST ${plist}
        INSTALL_RPATH @executable_path/../Frameworks)

    set(iconset ${CMAKE_CURRENT_BINARY_DIR}/Panorel.iconset)
    set(icon ${CMAKE_CURRENT_BINARY_DIR}/Panorel.icns)
    set(drawing ${packaging}/icons/org.panorel.Panorel.svg)
    add_custom_command(OUTPUT ${icon}
        COMMAND render-icons iconset ${drawing} ${iconset}
        COMMAND iconutil --convert icns --output ${icon} ${iconset}
        DEPENDS render-icons ${drawing} VERBATIM)
    set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    target_sources(${target} PRIVATE ${icon})

    install(TARGETS ${target} BUNDLE DESTINATION .)
    if(PANOREL_SPARKLE)
        install(DIRECTORY ${PANOREL_SPARKLE} DESTINATION Panorel.app/Contents/Frameworks
            USE_SOURCE_PERMISSIONS)
    endif()
    find_program(PANOREL_MACDEPLOYQT macdeployqt REQUIRED
        HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS})
    set(deploy ${CMAKE_CURRENT_BINARY_DIR}/Deploy.cmake)
    configure_file(${packaging}/macos/Deploy.cmake.in ${deploy} @ONLY)
    install(SCRIPT ${deploy})
endfunction()
