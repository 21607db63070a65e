# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT

# tessel_translate(template result) configures a desktop entry or an XML file, with its marked texts in
# all languages of the bundle: "_Name=Quit" becomes "Name=Quit", and "Name[ko]=종료" after it; "<_p>"
# likewise. A language whose table lacks the text gets none. A marked text is one line without "@".
function(tessel_translate template result)
    cmake_path(ABSOLUTE_PATH template)
    file(GLOB tables CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/resources/Tessel_Tessel.bundle/Localizations/*.json)
    list(FILTER tables EXCLUDE REGEX "/en[.]json$")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${template} ${tables})
    file(READ ${template} content)
    while(content MATCHES "(\n *<?)_([A-Za-z]+)([=>])([^<\n]+)(</)?_?([a-z]+>)?")
        set(marked "${CMAKE_MATCH_0}")
        set(start "${CMAKE_MATCH_1}${CMAKE_MATCH_2}")
        set(separator "${CMAKE_MATCH_3}")
        set(text "${CMAKE_MATCH_4}")
        set(end "${CMAKE_MATCH_5}${CMAKE_MATCH_6}")
        set(lines "${start}${separator}${text}${end}")
        foreach(table ${tables})
            file(READ ${table} translations)
            string(JSON translation ERROR_VARIABLE missing GET "${translations}" "${text}")
            cmake_path(GET table STEM locale)
            string(REGEX REPLACE "^zh$" "zh_CN" locale ${locale})
            set(language "[${locale}]")
            if(separator STREQUAL ">")
                set(language " xml:lang=\"${locale}\"")
            endif()
            if(NOT missing)
                string(APPEND lines "${start}${language}${separator}${translation}${end}")
            endif()
        endforeach()
        string(REPLACE "${marked}" "${lines}" content "${content}")
    endwhile()
    file(CONFIGURE OUTPUT ${result} CONTENT "${content}" @ONLY)
endfunction()

# tessel_read_releases(variable): the releases of CHANGELOG.md as the metainfo of AppStream has them.
# What is above the first heading with a date is no release yet.
function(tessel_read_releases variable)
    set(changelog ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
    file(READ ${changelog} content)
    string(REPLACE "`" "" content "${content}")
    string(REPLACE "&" "&amp;" content "${content}")
    string(REPLACE "<" "&lt;" content "${content}")
    string(STRIP "${content}" content)
    string(REGEX REPLACE "\n +" " " content "${content}")
    string(REGEX REPLACE "\n- ([^\n]+)" "\n          <li>\\1</li>" content "${content}")
    set(end "\n        </ul>\n      </description>\n    </release>")
    string(REGEX REPLACE "\n+## ([0-9.]+) - ([0-9-]+)\n+"
        "${end}\n    <release version=\"\\1\" date=\"\\2\">\n      <description>\n        <ul>\n"
        content "${content}")
    string(FIND "${content}" "    <release " first)
    string(SUBSTRING "${content}" ${first} -1 content)
    string(STRIP "${content}${end}" content)
    set(${variable} "${content}" PARENT_SCOPE)
endfunction()
