# Installs the build to a prefix of its own, moves that, so that nothing can lean on the place it was installed to,
# and there builds and runs the program of this folder and the installed command line.
cmake_minimum_required(VERSION 3.25)
set(work "${BUILD}/consumer")
set(prefix "${work}/moved")
file(REMOVE_RECURSE "${work}")

function(run what)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY "${work}" RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  message(STATUS "${what}\n${output}")
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed: ${result}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY "${work}")
run("install" ${CMAKE_COMMAND} --install "${BUILD}" --prefix "${work}/installed")
file(RENAME "${work}/installed" "${prefix}")
set(flags "")
if(SANITIZERS)
  set(flags "-fsanitize=${SANITIZERS}")
endif()
run("configure" ${CMAKE_COMMAND} -S "${SOURCE}" -B "${work}/build" -G Ninja "-DCMAKE_CXX_COMPILER=${COMPILER}"
  "-DCMAKE_CXX_FLAGS=${flags}" "-DCMAKE_PREFIX_PATH=${prefix}")
run("build" ${CMAKE_COMMAND} --build "${work}/build")
run("run" "${work}/build/consumer")
if(NOT output MATCHES "bytes in [1-9][0-9]* messages")
  message(FATAL_ERROR "the consumer sent nothing")
endif()
run("the installed command line" "${prefix}/bin/kestrel" --version)
