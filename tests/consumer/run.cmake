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

# Whoever exports one more class uses it here, too: each must be a symbol that the program takes from libkestrel.
file(GLOB headers "${prefix}/include/kestrel/x*.h" "${prefix}/include/kestrel/c*.h")
set(classes "")
foreach(header IN LISTS headers)
  file(STRINGS "${header}" lines REGEX "^(class|struct) KESTREL_API ")
  list(TRANSFORM lines REPLACE "^[a-z]+ KESTREL_API ([A-Za-z0-9_]+).*" "\\1")
  list(APPEND classes ${lines})
endforeach()
list(LENGTH classes count)
if(count LESS 18)
  message(FATAL_ERROR "only ${count} exported classes were found")
endif()
find_program(NM NAMES nm llvm-nm REQUIRED)
execute_process(COMMAND ${NM} --undefined-only --demangle "${work}/build/consumer" OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY)
foreach(class IN LISTS classes)
  if(NOT symbols MATCHES " ${class}::")
    message(FATAL_ERROR "the consumer takes nothing of ${class} from libkestrel")
  endif()
endforeach()

run("run" "${work}/build/consumer")
if(NOT output MATCHES "bytes in [1-9][0-9]* messages")
  message(FATAL_ERROR "the consumer sent nothing")
endif()
run("the installed command line" "${prefix}/bin/kestrel" --version)
