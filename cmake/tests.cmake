# One executable for the tests of a folder, and one entry in CTest for all its cases, because starting a process costs
# more than most of them. Sources named *_process_test.cpp test process-wide statics: they go in an executable
# <name>_process, where each case gets a process of its own.
#
#   kestrel_tests(<name> FOLDER <folder of tests/> LIBRARIES <target>... [INCLUDES <folder>...]
#                 [DEFINITIONS <definition>...] [DEPENDS <target>...] [WITHOUT_SUPPORT])
function(kestrel_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WITHOUT_SUPPORT" "FOLDER" "LIBRARIES;INCLUDES;DEFINITIONS;DEPENDS")
  set(folder "${PROJECT_SOURCE_DIR}/tests/${arg_FOLDER}")
  kestrel_glob(shared "${folder}")
  set(together ${shared})
  set(alone ${shared})
  list(FILTER shared EXCLUDE REGEX "_test\\.cpp$")
  list(FILTER together INCLUDE REGEX "_test\\.cpp$")
  list(FILTER together EXCLUDE REGEX "_process_test\\.cpp$")
  list(FILTER alone INCLUDE REGEX "_process_test\\.cpp$")
  if(together)
    kestrel_test_executable(${name} "${together};${shared}")
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  endif()
  if(alone)
    kestrel_test_executable(${name}_process "${alone};${shared}")
    gtest_discover_tests(${name}_process TEST_PREFIX ${name}_process. DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
  endif()
endfunction()

# Takes what is common from the arguments of its caller.
macro(kestrel_test_executable executable sources)
  add_executable(${executable} ${sources})
  kestrel_target(${executable})
  # Most of a build is the tests, and they do not run long enough to be worth optimising.
  target_compile_options(${executable} PRIVATE $<$<CONFIG:Debug>:-O0>)
  target_include_directories(${executable} PRIVATE "${folder}" ${arg_INCLUDES})
  target_compile_definitions(${executable} PRIVATE KESTREL_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    KESTREL_SHARE_DIR="${PROJECT_SOURCE_DIR}/share" ${arg_DEFINITIONS})
  if(NOT arg_WITHOUT_SUPPORT)
    target_link_libraries(${executable} PRIVATE kestrel_test_support)
  endif()
  target_link_libraries(${executable} PRIVATE ${arg_LIBRARIES} GTest::gmock GTest::gtest GTest::gtest_main)
  if(arg_DEPENDS)
    add_dependencies(${executable} ${arg_DEPENDS})
  endif()
endmacro()

# Tests of a family's private parts. `model`, `host` and `tools` are families too: those of embedded/ and of the
# command line. The first two stand without support/, which would bring the same code in a second time.
function(kestrel_unit_tests family)
  set(includes "${PROJECT_SOURCE_DIR}/src/${family}" "${PROJECT_SOURCE_DIR}/src")
  set(usage LIBRARIES kestrel_static)
  if(family STREQUAL "model")
    set(includes "${PROJECT_SOURCE_DIR}/embedded/model")
    set(usage LIBRARIES lumochart_static WITHOUT_SUPPORT)
  elseif(family STREQUAL "host")
    set(includes "${PROJECT_SOURCE_DIR}/embedded/host")
    set(usage LIBRARIES kestrelhost_static kestrel_test_schema WITHOUT_SUPPORT)
  elseif(family STREQUAL "tools")
    set(includes "${PROJECT_SOURCE_DIR}/tools/kestrel")
    set(usage LIBRARIES kestrel_cli_parts)
  endif()
  kestrel_tests(unit_${family} FOLDER unit/${family} INCLUDES ${includes} ${usage})
endfunction()
