# Warnings for our own targets only: they are private, so no user of the libraries inherits them.
set(KESTREL_WARNINGS
    -Wall -Wextra -Wpedantic
    -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion
    -Wold-style-cast -Wcast-qual -Wcast-align
    -Woverloaded-virtual -Wnon-virtual-dtor -Wextra-semi
    -Wformat=2 -Wundef -Wunused -Wimplicit-fallthrough)
set(KESTREL_WARNINGS_GNU
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)
set(KESTREL_WARNINGS_CLANG
    -Winconsistent-missing-override -Wshadow-uncaptured-local -Wloop-analysis)

function(kestrel_warnings target)
  target_compile_options(${target} PRIVATE
    ${KESTREL_WARNINGS}
    $<$<CXX_COMPILER_ID:GNU>:${KESTREL_WARNINGS_GNU}>
    $<$<CXX_COMPILER_ID:Clang,AppleClang>:${KESTREL_WARNINGS_CLANG}>
    $<$<BOOL:${KESTREL_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
