# The API reference. An exported operation without a comment, or a comment that is wrong, fails the build of it.
find_program(KESTREL_DOXYGEN doxygen)
find_package(Python3 COMPONENTS Interpreter QUIET)
set(KESTREL_REFERENCE_DIR "${PROJECT_BINARY_DIR}/reference" CACHE PATH "Where the API reference is built")
if(KESTREL_DOXYGEN AND Python3_FOUND)
  set(doxyfile "${PROJECT_BINARY_DIR}/Doxyfile")
  configure_file("${PROJECT_SOURCE_DIR}/docs/reference/Doxyfile.in" "${doxyfile}" @ONLY)
  add_custom_target(kestrel_reference
    COMMAND ${CMAKE_COMMAND} -E make_directory "${KESTREL_REFERENCE_DIR}"
    COMMAND "${KESTREL_DOXYGEN}" "${doxyfile}"
    COMMENT "Writing the reference to ${KESTREL_REFERENCE_DIR}" VERBATIM)
endif()
