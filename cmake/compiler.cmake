set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

if(KESTREL_CCACHE)
  find_program(KESTREL_CCACHE_PROGRAM ccache)
  mark_as_advanced(KESTREL_CCACHE_PROGRAM)
  if(KESTREL_CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Paths below the source folder are hashed relative, so that every build folder shares the cache.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${KESTREL_CCACHE_PROGRAM})
  endif()
endif()

if(KESTREL_FAST_LINKER AND NOT APPLE)
  find_program(KESTREL_LINKER_PROGRAM NAMES mold ld.lld)
  mark_as_advanced(KESTREL_LINKER_PROGRAM)
  if(KESTREL_LINKER_PROGRAM MATCHES "mold$")
    add_link_options(-fuse-ld=mold)
  elseif(KESTREL_LINKER_PROGRAM)
    add_link_options(-fuse-ld=lld)
  endif()
endif()

# A library that forgets one of those it needs does not link. Sanitizers leave their own symbols to the program.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT KESTREL_SANITIZERS)
  string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,-z,defs")
endif()

if(KESTREL_LTO)
  include(CheckIPOSupported)
  check_ipo_supported()
endif()

# What every target of ours is built with. File names in messages are relative to the source folder.
function(kestrel_target target)
  kestrel_warnings(${target})
  # The second form is what ccache hands to the compiler.
  file(RELATIVE_PATH source_dir "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
  target_compile_options(${target} PRIVATE
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/= -fmacro-prefix-map=${source_dir}/=)
  # Calls within a library are not for others to replace; Clang takes that for granted.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
  if(KESTREL_SANITIZERS)
    target_compile_options(${target} PRIVATE
      -fsanitize=${KESTREL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${KESTREL_SANITIZERS} -fno-sanitize-recover=all)
  endif()
  if(KESTREL_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(KESTREL_LTO)
    set_target_properties(${target} PROPERTIES INTERPROCEDURAL_OPTIMIZATION ON)
    target_link_options(${target} PRIVATE ${KESTREL_FALSE_ALARMS})
  endif()
endfunction()

# Sources of a folder and below; a new file is picked up by the next build.
function(kestrel_glob result folder)
  cmake_parse_arguments(PARSE_ARGV 2 arg "FLAT" "PATTERN" "")
  if(NOT arg_PATTERN)
    set(arg_PATTERN "*.cpp")
  endif()
  if(arg_FLAT)
    file(GLOB found CONFIGURE_DEPENDS "${folder}/${arg_PATTERN}")
  else()
    file(GLOB_RECURSE found CONFIGURE_DEPENDS "${folder}/${arg_PATTERN}")
  endif()
  list(FILTER found EXCLUDE REGEX "/node_modules/")
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# Names of the direct subfolders that hold at least one source.
function(kestrel_subfolders result folder)
  file(GLOB sources CONFIGURE_DEPENDS RELATIVE "${folder}" "${folder}/*/*.cpp" "${folder}/*/*/*.cpp")
  list(TRANSFORM sources REPLACE "/.*" "")
  list(REMOVE_DUPLICATES sources)
  set(${result} ${sources} PARENT_SCOPE)
endfunction()
