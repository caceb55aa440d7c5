# Target headers-alone: compiles each public header by itself, with nothing in reach but what its own library links.
add_custom_target(headers-alone)

get_property(libraries GLOBAL PROPERTY COMMONUI_LIBRARIES)
foreach(library IN LISTS libraries)
    get_target_property(headers ${library} COMMONUI_PUBLIC_HEADERS)
    if(NOT headers)
        continue()
    endif()
    set(sources "")
    foreach(header IN LISTS headers)
        get_filename_component(name "${header}" NAME)
        set(source "${CMAKE_BINARY_DIR}/headers-alone/${library}/${name}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${name}\"\n")
        list(APPEND sources "${source}")
    endforeach()
    add_library(headers-alone-${library} OBJECT EXCLUDE_FROM_ALL ${sources})
    # The edit widget's interface has a signal in two forms.
    set_target_properties(headers-alone-${library} PROPERTIES AUTOMOC OFF CXX_CLANG_TIDY ""
        COMMONUI_CLAZY_EXCEPT ",no-overloaded-signal")
    target_link_libraries(headers-alone-${library} PRIVATE ${library})
    add_dependencies(headers-alone headers-alone-${library})
endforeach()
