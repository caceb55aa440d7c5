include(GenerateExportHeader)

# commonui_library(NAME [LINK targets...])
# A shared library of the house with a CommonUI:: alias, an export macro NAME_EXPORT, hidden visibility,
# a SONAME, install rules and precompiled Qt headers. Sources are added with target_sources by the caller.
function(commonui_library name)
    cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
    add_library(${name} SHARED)
    commonui_configure_library(${name} ${name})
    target_link_libraries(${name} PUBLIC ${arg_LINK})
    add_library(CommonUI::${name} ALIAS ${name})
    set_property(GLOBAL APPEND PROPERTY COMMONUI_LIBRARIES ${name})
    install(TARGETS ${name} EXPORT CommonUITargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CommonUI)
endfunction()

# What a library and its test variants have in common; the export header is named after exportName.
function(commonui_configure_library target exportName)
    generate_export_header(${target} BASE_NAME ${exportName}
        EXPORT_FILE_NAME "${CMAKE_CURRENT_BINARY_DIR}/${exportName}Export.h")
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}>")
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        DEFINE_SYMBOL ${exportName}_EXPORTS)
    target_precompile_headers(${target} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/QtHeaders.h")
    commonui_find_new_classes(${target})
endfunction()

# AUTOMOC of an existing build looks at the list of sources only when a header that it knows has changed. When the folder of the
# caller is configured to its end, moc is made to look if the list of the target is another one.
function(commonui_find_new_classes target)
    cmake_language(EVAL CODE "cmake_language(DEFER CALL commonui_notice_sources [[${target}]])")
endfunction()

function(commonui_notice_sources target)
    get_target_property(sources ${target} SOURCES)
    set(seen "${CMAKE_CURRENT_BINARY_DIR}/${target}-sources.txt")
    set(former "")
    if(EXISTS "${seen}")
        file(READ "${seen}" former)
    endif()
    if(NOT former STREQUAL "${sources}")
        file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp")
        file(WRITE "${seen}" "${sources}")
    endif()
endfunction()

# commonui_sources(target PUBLIC_HEADERS... | PRIVATE...): adds files of the current folder to a library.
# Headers are installed and checked to compile alone, the folder becomes an include folder.
function(commonui_sources target)
    cmake_parse_arguments(arg "" "" "HEADERS;SOURCES" ${ARGN})
    list(TRANSFORM arg_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE headers)
    list(TRANSFORM arg_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE sources)
    target_sources(${target} PRIVATE ${headers} ${sources})
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>")
    set_property(TARGET ${target} APPEND PROPERTY COMMONUI_PUBLIC_HEADERS ${headers})
    install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CommonUI)
endfunction()
