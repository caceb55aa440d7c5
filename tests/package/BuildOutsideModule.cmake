# Installs the build, then configures, builds and runs a module that knows nothing of this tree.
if(SANITIZER)
    set(flags "-fsanitize=${SANITIZER}")
endif()
file(REMOVE_RECURSE "${PREFIX}" "${MODULE}")

function(step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "failed (${status}): ${ARGN}")
    endif()
endfunction()

step(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${PREFIX}")
step(${CMAKE_COMMAND} -S "${SOURCE}" -B "${MODULE}" -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DEXAMPLE=${EXAMPLE}"
    "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${flags}")
step(${CMAKE_COMMAND} --build "${MODULE}")
step("${MODULE}/outside-module")
