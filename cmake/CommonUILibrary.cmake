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
