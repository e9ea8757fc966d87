# Hidden visibility still lets some weak templates of the standard library out. On Linux a version script, made from
# the classes and functions that the headers mark as exported, leaves nothing else visible.
#
#   kestrel_limit_exports(<target> MACRO <export macro> HEADERS <header>... [NAMESPACES <namespace>...])
function(kestrel_limit_exports target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "MACRO" "HEADERS;NAMESPACES")
  if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
    return()
  endif()
  list(FILTER arg_HEADERS EXCLUDE REGEX "NOTFOUND$")  # a header set without files
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${target}.map")
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${target}.headers")
  string(REPLACE ";" "\n" headers "${arg_HEADERS}")
  file(CONFIGURE OUTPUT "${list}" CONTENT "${headers}\n")
  add_custom_command(
    OUTPUT "${script}"
    COMMAND ${CMAKE_COMMAND} -D MACRO=${arg_MACRO} -D "HEADER_LIST=${list}" -D "NAMESPACES=${arg_NAMESPACES}"
            -D "OUTPUT=${script}" -P "${PROJECT_SOURCE_DIR}/cmake/write_version_script.cmake"
    DEPENDS ${arg_HEADERS} "${list}" "${PROJECT_SOURCE_DIR}/cmake/write_version_script.cmake"
    COMMENT "Listing the exported classes of ${target}"
    VERBATIM)
  target_sources(${target} PRIVATE "${script}")
  target_link_options(${target} PRIVATE "LINKER:--version-script=${script}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${script}")
endfunction()
