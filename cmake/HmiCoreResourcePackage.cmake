# hmicore_add_resource_package(<name> XML <description.xml> [FILES <file>...] [BINARY]
#                              [OUTPUT_DIRECTORY <dir>])
#
# Builds the resource package <name>.rcc (a binary Qt resource file) at build time. The package
# holds the description as "<name>.xml" and each of FILES under its path relative to the
# description's directory, which is how the description names them. With BINARY, the description
# is compiled by `hmicore resource compile` and stored as "<name>.dat" instead, so that it is
# never parsed on the target. A target <name>_package builds the package with ALL.
function(hmicore_add_resource_package name)
    cmake_parse_arguments(PKG "BINARY" "XML;OUTPUT_DIRECTORY" "FILES" ${ARGN})
    if(NOT PKG_XML)
        message(FATAL_ERROR "hmicore_add_resource_package(${name}): XML is required")
    endif()
    if(NOT PKG_OUTPUT_DIRECTORY)
        set(PKG_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    endif()
    get_filename_component(xml ${PKG_XML} ABSOLUTE)
    get_filename_component(xml_dir ${xml} DIRECTORY)
    set(work ${CMAKE_CURRENT_BINARY_DIR}/${name}_package)
    set(output ${PKG_OUTPUT_DIRECTORY}/${name}.rcc)

    set(depends ${xml})
    if(PKG_BINARY)
        if(TARGET hmicore)
            set(tool $<TARGET_FILE:hmicore>)
        elseif(TARGET HmiCore::hmicore)
            set(tool $<TARGET_FILE:HmiCore::hmicore>)
        else()
            message(FATAL_ERROR "hmicore_add_resource_package(${name} BINARY) needs the hmicore tool")
        endif()
        set(description ${work}/${name}.dat)
        add_custom_command(OUTPUT ${description}
            COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
                ${tool} resource compile ${xml} -o ${description} --base-path ${xml_dir}/
            DEPENDS ${xml} ${tool}
            COMMENT "Compiling resource description ${name}.dat"
            VERBATIM)
        set(entries "        <file alias=\"${name}.dat\">${description}</file>\n")
        list(APPEND depends ${description})
    else()
        set(entries "        <file alias=\"${name}.xml\">${xml}</file>\n")
    endif()
    foreach(item ${PKG_FILES})
        get_filename_component(path ${item} ABSOLUTE)
        file(RELATIVE_PATH alias ${xml_dir} ${path})
        string(APPEND entries "        <file alias=\"${alias}\">${path}</file>\n")
        list(APPEND depends ${path})
    endforeach()
    file(GENERATE OUTPUT ${work}/${name}.qrc CONTENT
        "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n    <qresource prefix=\"/\">\n${entries}    </qresource>\n</RCC>\n")

    add_custom_command(OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PKG_OUTPUT_DIRECTORY}
        COMMAND Qt5::rcc -binary ${work}/${name}.qrc -o ${output}
        DEPENDS ${depends} ${work}/${name}.qrc
        COMMENT "Packing resource package ${name}.rcc"
        VERBATIM)
    add_custom_target(${name}_package ALL DEPENDS ${output})
endfunction()
