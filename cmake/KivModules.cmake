# Modules with layers, and tests. A module may link only modules of lower layers; a wrong arrow
# stops the configure step.

# kiv_add_module(name LAYER n DEPENDS targets... SOURCES files...)
# Makes the static library KIV::<name>, its headers reachable for whoever links it.
function(kiv_add_module name)
  cmake_parse_arguments(arg "" "LAYER" "DEPENDS;SOURCES;RESOURCES" ${ARGN})
  foreach(dep IN LISTS arg_DEPENDS)
    get_target_property(layer ${dep} KIV_LAYER)
    if(layer AND NOT layer LESS arg_LAYER)
      message(FATAL_ERROR "${name} (layer ${arg_LAYER}) must not use ${dep} (layer ${layer})")
    endif()
  endforeach()
  add_library(kiv_${name} STATIC ${arg_SOURCES} ${arg_RESOURCES})
  add_library(KIV::${name} ALIAS kiv_${name})
  set_target_properties(kiv_${name} PROPERTIES KIV_LAYER ${arg_LAYER} AUTOMOC ON AUTORCC ON)
  target_compile_definitions(kiv_${name} PUBLIC QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
  target_include_directories(kiv_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(kiv_${name} PUBLIC ${arg_DEPENDS} PRIVATE KIV::Warnings)
endfunction()

# kiv_add_test(tst_name DEPENDS targets... [SOURCES more files...] [TIMEOUT seconds])
# A Qt Test program from tests/tst_name.cpp, run without a display.
function(kiv_add_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "DEPENDS;SOURCES" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_executable(${name} tests/${name}.cpp ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES
    AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS} Qt5::Test KIV::Warnings)
  add_test(NAME ${name} COMMAND ${name})
  kiv_test_environment(${name} ${arg_TIMEOUT})
endfunction()

# kiv_add_gtest(tst_name DEPENDS targets... [TESTS tst_one...] [SOURCES more files...]
#               [TIMEOUT seconds])
# A GoogleTest program from tests/tst_name.cpp, or from the files that TESTS names in its place, for
# code that knows no Qt.
function(kiv_add_gtest name)
  cmake_parse_arguments(arg "" "TIMEOUT" "DEPENDS;SOURCES;TESTS" ${ARGN})
  if(NOT arg_TESTS)
    set(arg_TESTS ${name})
  endif()
  list(TRANSFORM arg_TESTS REPLACE "(.+)" "tests/\\1.cpp")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  find_package(GTest REQUIRED)
  add_executable(${name} ${arg_TESTS} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS} GTest::gtest_main KIV::Warnings)
  add_test(NAME ${name} COMMAND ${name})
  kiv_test_environment(${name} ${arg_TIMEOUT})
endfunction()

# A Qt Test program would end a function by itself after five minutes, however long its limit is.
function(kiv_test_environment name timeout)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout} ENVIRONMENT
    "TEST_TMPDIR=${CMAKE_CURRENT_BINARY_DIR};QTEST_FUNCTION_TIMEOUT=${timeout}000;QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;KIV_SOURCE_DIR=${CMAKE_SOURCE_DIR};KIV_BIN_DIR=${KIV_BIN}")
endfunction()
