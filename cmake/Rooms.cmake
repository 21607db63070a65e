# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT

# tessel_add_room(source...) makes the library of the folder that calls it: src/bar is tessel_bar,
# tools/lib/calendar tessel_lib_calendar. Includes name the folder ("bar/HoverButton.h"). What the
# library links says which other rooms it may use; the test "rooms" compares that with the includes.
function(tessel_add_room)
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    string(REGEX REPLACE "^([^/]+)/(.*)$" "\\2" room ${folder})
    string(REGEX REPLACE "^([^/]+)/(.*)$" "\\1" root ${folder})
    string(REGEX REPLACE "[/-]" "_" name tessel_${room})
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/${root})
    set_property(GLOBAL APPEND PROPERTY TESSEL_ROOMS ${name})
endfunction()

# A program that users or scripts call by its name, in the folder that stands first on the PATH of
# actions.
function(tessel_add_helper name)
    add_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/libexec)
    install(TARGETS ${name} DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/tessel)
endfunction()
