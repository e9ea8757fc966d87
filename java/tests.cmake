# The tests of the Java side, on JUnit 5: an entry in CTest for each package of tests.

set(KESTREL_JUNIT_DIR "/usr/share/java" CACHE PATH "Folder of the jars of JUnit 5")
set(junit "")
foreach(jar junit-jupiter-api junit-jupiter-params junit-jupiter-engine junit-platform-commons junit-platform-engine
    junit-platform-launcher junit-platform-console junit-platform-reporting opentest4j apiguardian-api picocli
    univocity-parsers)
  find_file(KESTREL_JAR_${jar} ${jar}.jar HINTS "${KESTREL_JUNIT_DIR}" NO_DEFAULT_PATH)
  mark_as_advanced(KESTREL_JAR_${jar})
  if(NOT KESTREL_JAR_${jar} AND APPLE)
    message(STATUS "Without JUnit 5 in ${KESTREL_JUNIT_DIR} the Java side is not tested")
    return()
  endif()
  if(NOT KESTREL_JAR_${jar})
    message(FATAL_ERROR "JUnit 5 is incomplete: ${jar}.jar is not in ${KESTREL_JUNIT_DIR}. Install it (Debian: junit5), "
      "name the folder of its jars in KESTREL_JUNIT_DIR, or leave the Java side out: -DKESTREL_JAVA=OFF")
  endif()
  list(APPEND junit "${KESTREL_JAR_${jar}}")
endforeach()

file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/src/test/java/*.java")
# The jars of JUnit name others in their manifests that are not needed and need not be there.
list(APPEND CMAKE_JAVA_COMPILE_FLAGS -Xlint:-path -Xlint:-processing)
add_jar(kestrel_java_tests SOURCES ${sources} INCLUDE_JARS kestrel_java ${junit} OUTPUT_NAME kestrel-java-tests)

# Fails where a package has no test.
#
#   kestrel_java_tests(<name> <package>)
function(kestrel_java_tests name package)
  get_target_property(tested kestrel_java JAR_FILE)
  get_target_property(tests kestrel_java_tests JAR_FILE)
  list(JOIN junit ":" path)
  add_test(NAME ${name} COMMAND ${Java_JAVA_EXECUTABLE} -XX:+UseSerialGC -XX:TieredStopAtLevel=1 -Xmx512m
    -Dkestrel.source.dir=${PROJECT_SOURCE_DIR} -cp "${tested}:${tests}:${path}"
    org.junit.platform.console.ConsoleLauncher --scan-classpath=${tests}
    --include-package=${package} --fail-if-no-tests --disable-banner
    --details=summary --disable-ansi-colors)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

kestrel_java_tests(java_adapter kestrel.adapter)
kestrel_java_tests(java_converter kestrel.converter)
kestrel_java_tests(java_lumoml14 kestrel.lumoml14)
kestrel_java_tests(java_markup kestrel.markup)
kestrel_java_tests(java_pdl kestrel.pdl)
kestrel_java_tests(java_stylesheet kestrel.stylesheet)
kestrel_java_tests(golden_java kestrel.golden)
