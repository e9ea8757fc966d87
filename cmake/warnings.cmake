# Warnings for our own targets only: they are private, so no user of the libraries inherits them.
set(KESTREL_WARNINGS
    -Wall -Wextra -Wpedantic
    -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion
    -Wold-style-cast -Wcast-qual -Wcast-align
    -Woverloaded-virtual -Wnon-virtual-dtor -Wextra-semi
    -Wformat=2 -Wundef -Wunused -Wimplicit-fallthrough)
set(KESTREL_WARNINGS_GNU
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)
# GCC 12 takes appending to its own strings for an overflow, where it optimises: while compiling, and while linking with
# optimisation across translation units.
set(KESTREL_FALSE_ALARMS "")
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  set(KESTREL_FALSE_ALARMS -Wno-stringop-overflow -Wno-restrict)
endif()
set(KESTREL_WARNINGS_CLANG
    -Winconsistent-missing-override -Wshadow-uncaptured-local -Wloop-analysis)

function(kestrel_warnings target)
  target_compile_options(${target} PRIVATE
    ${KESTREL_WARNINGS}
    $<$<CXX_COMPILER_ID:GNU>:${KESTREL_WARNINGS_GNU}>
    $<$<CXX_COMPILER_ID:Clang,AppleClang>:${KESTREL_WARNINGS_CLANG}>
    ${KESTREL_FALSE_ALARMS}
    $<$<BOOL:${KESTREL_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
