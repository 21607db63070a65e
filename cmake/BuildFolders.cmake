# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT

# tessel_define_build_folder(source NAME folder) compiles the folder into the source, as which the
# programs that have not been installed look for what they need. In packages it is empty: nothing
# in them says where they were built.
function(tessel_define_build_folder source name folder)
    if(NOT TESSEL_RUN_FROM_BUILD)
        set(folder "")
    endif()
    set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS "${name}=\"${folder}\"")
endfunction()
