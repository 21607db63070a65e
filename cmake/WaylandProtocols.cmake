# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT

# tessel_add_protocols(name file.xml...) makes a library of what wayland-scanner writes for clients:
# of "viewporter.xml" the header is "viewporter-client.h".
function(tessel_add_protocols name)
    foreach(description ${ARGN})
        cmake_path(ABSOLUTE_PATH description)
        cmake_path(GET description STEM protocol)
        set(stem ${CMAKE_CURRENT_BINARY_DIR}/${protocol})
        add_custom_command(OUTPUT ${stem}-client.h ${stem}.c
            COMMAND ${TESSEL_WAYLAND_SCANNER} client-header ${description} ${stem}-client.h
            COMMAND ${TESSEL_WAYLAND_SCANNER} private-code ${description} ${stem}.c
            DEPENDS ${description} VERBATIM)
        list(APPEND sources ${stem}.c ${stem}-client.h)
    endforeach()
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} SYSTEM INTERFACE ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(${name} PUBLIC PkgConfig::wayland)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()
