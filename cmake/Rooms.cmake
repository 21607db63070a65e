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
endfunction()

# A program that users or scripts call by its name, in the folder that stands first on the PATH of
# actions. The target "helpers" makes them all.
add_custom_target(helpers)
function(tessel_add_helper name)
    add_executable(${name} ${ARGN})
    add_dependencies(helpers ${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/libexec)
    install(TARGETS ${name} DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/tessel)
endfunction()

# Writes what every target of the folder and those below it may use: target|folder|PUBLIC links|
# PRIVATE links|sources, a line each, rooms before what stands beside them.
function(tessel_append_targets file folder)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
        get_target_property(type ${target} TYPE)
        if(type STREQUAL UTILITY)
            continue()
        endif()
        file(RELATIVE_PATH place ${PROJECT_SOURCE_DIR} ${folder})
        foreach(list LINK_LIBRARIES INTERFACE_LINK_LIBRARIES SOURCES)
            get_target_property(${list} ${target} ${list})
        endforeach()
        list(FILTER LINK_LIBRARIES INCLUDE REGEX "^tessel_")
        list(FILTER INTERFACE_LINK_LIBRARIES INCLUDE REGEX "^tessel_")
        list(REMOVE_ITEM LINK_LIBRARIES ${INTERFACE_LINK_LIBRARIES})
        set(line "${target}|${place}|${INTERFACE_LINK_LIBRARIES}|${LINK_LIBRARIES}|${SOURCES}")
        string(REPLACE ";" " " line "${line}")
        file(APPEND ${file} "${line}\n")
    endforeach()
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder ${subfolders})
        tessel_append_targets(${file} ${subfolder})
    endforeach()
endfunction()

function(tessel_write_rooms file)
    file(WRITE ${file} "")
    tessel_append_targets(${file} ${PROJECT_SOURCE_DIR})
endfunction()
