# What every target of the project is compiled with, and how a module is declared.

add_library(panorel_options INTERFACE)
target_compile_definitions(panorel_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400
    # What newer versions of Qt advise against is no error here.
    QT_WARN_DEPRECATED_UP_TO=0x060400)
target_compile_options(panorel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wimplicit-fallthrough -Wextra-semi -Werror
    -pthread) # everywhere or nowhere: the tests share one precompiled header
target_include_directories(panorel_options INTERFACE ${PROJECT_SOURCE_DIR}/Sources)

if(PANOREL_SANITIZE)
    set(flags -fsanitize=${PANOREL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # GCC's flow analysis reports false positives in instrumented code.
    target_compile_options(panorel_options INTERFACE ${flags}
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(panorel_options INTERFACE ${flags})
endif()

option(PANOREL_HARDEN "Build as for strangers' computers: what a fault could do is bounded" OFF)
if(PANOREL_HARDEN AND NOT APPLE)
    include(CheckPIESupported)
    check_pie_supported()
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    target_compile_options(panorel_options INTERFACE
        -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
        -Wformat -Werror=format-security
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.) # the same code gives the same program
    target_link_options(panorel_options INTERFACE -Wl,-z,relro,-z,now)
endif()

# panorel_module(NAME LINKS target... [EXCLUDE file or folder...]): a static library of all other
# sources below the current folder. LINKS is the whole of what the module may depend on.
function(panorel_module name)
    cmake_parse_arguments(module "" "" "LINKS;EXCLUDE" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
        ${CMAKE_CURRENT_SOURCE_DIR}/*.mm)
    foreach(excluded IN LISTS module_EXCLUDE)
        file(GLOB_RECURSE below CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${excluded}/*)
        list(REMOVE_ITEM sources ${CMAKE_CURRENT_SOURCE_DIR}/${excluded} ${below})
    endforeach()
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ${module_LINKS} PRIVATE panorel_options)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/Sources)
    target_precompile_headers(${name} PRIVATE
        <QString> <QStringList> <algorithm> <functional> <memory> <optional> <vector>)
endfunction()
