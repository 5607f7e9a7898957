# `cpack` in the build folder makes the disk image: the bundle, and a link to drag it to.
set(CPACK_GENERATOR DragNDrop)
set(CPACK_PACKAGE_NAME Panorel)
set(CPACK_PACKAGE_VENDOR "The Panorel contributors")
set(CPACK_PACKAGE_FILE_NAME Panorel-${PROJECT_VERSION})
set(CPACK_DMG_VOLUME_NAME Panorel)
set(CPACK_STRIP_FILES OFF) # it would break the signatures
include(CPack)
