# Writes a linker version script that exports the classes and free functions which MACRO marks in some headers, and
# what is marked in NAMESPACES:
#   cmake -D MACRO=<export macro> -D HEADER_LIST=<file> -D NAMESPACES=<namespaces> -D OUTPUT=<file> -P this
# The patterns are mangled names: in these, unlike in readable ones, a return type cannot be taken for a class.
cmake_minimum_required(VERSION 3.25)

# <length><name> for each part of a qualified name.
function(mangle result qualified_name)
  set(mangled "")
  string(REPLACE "::" ";" parts "${qualified_name}")
  foreach(part IN LISTS parts)
    string(LENGTH "${part}" length)
    string(APPEND mangled "${length}${part}")
  endforeach()
  set(${result} "${mangled}" PARENT_SCOPE)
endfunction()

set(patterns "")
foreach(scope IN LISTS NAMESPACES)
  mangle(mangled "${scope}")
  list(APPEND patterns "_ZN${mangled}*" "_ZNK${mangled}*" "_ZT[VTIS]N${mangled}*" "_ZT[hvc]*N${mangled}*")
endforeach()

file(STRINGS "${HEADER_LIST}" headers)
foreach(header IN LISTS headers)
  file(READ "${header}" text)
  string(REPLACE ";" " @ " text "${text}")  # a semicolon would split CMake's lists
  string(REGEX REPLACE "//[^\n]*" "" text "${text}")

  string(REGEX MATCHALL "(class|struct)[ \n]+${MACRO}[ \n]+[A-Za-z_0-9]+" declarations "${text}")
  foreach(declaration IN LISTS declarations)
    string(REGEX REPLACE ".*[ \n]" "" name "${declaration}")
    mangle(mangled "${name}")
    list(APPEND patterns
      "_ZN${mangled}*" "_ZNK${mangled}*"                  # members
      "_ZT[VTIS]${mangled}" "_ZT[VTIS]N${mangled}*"       # tables and type information, of nested classes too
      "_ZT[hvc]*N${mangled}*" "_ZT[hvc]*NK${mangled}*")   # thunks
  endforeach()

  string(REGEX REPLACE "(class|struct)[ \n]+${MACRO}" "" text "${text}")
  string(REGEX MATCHALL "[ \n]${MACRO}[ \n][^({@]*[(@]" declarations "${text}")
  foreach(declaration IN LISTS declarations)
    if(declaration MATCHES "operator")
      list(APPEND patterns "_Z[a-z][a-zA-Z]R*")
    else()
      string(REGEX REPLACE ".*[ \n*&:]([A-Za-z_0-9]+)[ \n]*[(@]$" "\\1" name "${declaration}")
      mangle(mangled "${name}")
      list(APPEND patterns "_Z${mangled}*" "_ZN*${mangled}*" "${name}")
    endif()
  endforeach()
endforeach()

list(REMOVE_DUPLICATES patterns)
set(lines "")
foreach(pattern IN LISTS patterns)
  string(APPEND lines "    ${pattern};\n")
endforeach()
file(WRITE "${OUTPUT}" "{\n  global:\n${lines}  local:\n    *;\n};\n")
