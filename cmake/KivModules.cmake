# Modules with layers, programs and tests. A module may link only modules of lower layers; a wrong
# arrow stops the configure step, and the test "layers" holds every #include against the same arrows.

# kiv_add_module(name LAYER n [NO_QT] [SHARED] [INCLUDE folders...] DEPENDS targets...
#                [PRIVATE_DEPENDS targets...] SOURCES files... [RESOURCES files...])
# Makes the static library KIV::<name>, its headers reachable for whoever links it, from INCLUDE or
# else from the folder of the call. NO_QT is for code that knows no Qt. A SHARED library carries its
# name without a prefix, as the file does.
function(kiv_add_module name)
  cmake_parse_arguments(arg "NO_QT;SHARED" "LAYER"
    "INCLUDE;DEPENDS;PRIVATE_DEPENDS;SOURCES;RESOURCES" ${ARGN})
  if(NOT arg_INCLUDE)
    set(arg_INCLUDE ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
  if(arg_SHARED)
    set(target ${name})
    add_library(${target} SHARED ${arg_SOURCES} ${arg_RESOURCES})
  else()
    set(target kiv_${name})
    add_library(${target} STATIC ${arg_SOURCES} ${arg_RESOURCES})
  endif()
  add_library(KIV::${name} ALIAS ${target})
  if(NOT arg_NO_QT)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_compile_definitions(${target} PUBLIC QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
  endif()
  target_include_directories(${target} PUBLIC ${arg_INCLUDE})
  target_link_libraries(${target}
    PUBLIC ${arg_DEPENDS} PRIVATE ${arg_PRIVATE_DEPENDS} KIV::Warnings)
  kiv_enter(${target} ${arg_LAYER} "${arg_SOURCES}" "${arg_DEPENDS};${arg_PRIVATE_DEPENDS}")
endfunction()

# kiv_add_program(target LAYER n DEPENDS targets... SOURCES files...)
# A program that is shipped, or that the build runs.
function(kiv_add_program target)
  cmake_parse_arguments(arg "" "LAYER" "DEPENDS;SOURCES" ${ARGN})
  add_executable(${target} ${arg_SOURCES})
  target_link_libraries(${target} PRIVATE ${arg_DEPENDS} KIV::Warnings)
  kiv_enter(${target} ${arg_LAYER} "${arg_SOURCES}" "${arg_DEPENDS}")
endfunction()

# Refuses arrows that do not point downwards, and notes the target for kiv_add_layer_check.
function(kiv_enter target layer sources depends)
  set(known "")
  foreach(dep IN LISTS depends)
    if(NOT TARGET ${dep})
      continue() # a library of the system, by its file
    endif()
    get_target_property(real ${dep} ALIASED_TARGET)
    if(real)
      set(dep ${real})
    endif()
    get_target_property(below ${dep} KIV_LAYER)
    if(below STREQUAL "below-NOTFOUND")
      continue()
    endif()
    if(NOT below LESS layer)
      message(FATAL_ERROR "${target} (layer ${layer}) must not use ${dep} (layer ${below})")
    endif()
    list(APPEND known ${dep})
  endforeach()
  set_target_properties(${target} PROPERTIES KIV_LAYER ${layer})
  string(REPLACE ";" "," sources "${sources}")
  string(REPLACE ";" "," known "${known}")
  set_property(GLOBAL APPEND PROPERTY KIV_TARGETS
    "${target}|${CMAKE_CURRENT_SOURCE_DIR}|${sources}|${known}")
endfunction()

# The tests "layers" and "formatting" of all targets so far.
function(kiv_add_source_checks)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  find_program(KIV_CLANG_FORMAT NAMES clang-format-14 REQUIRED)
  get_property(targets GLOBAL PROPERTY KIV_TARGETS)
  list(JOIN targets "\n" lines)
  file(WRITE ${CMAKE_BINARY_DIR}/targets.txt "${lines}\n")
  add_test(NAME layers COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/scripts/check-layers.py
    ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/targets.txt)
  add_test(NAME formatting COMMAND ${CMAKE_SOURCE_DIR}/scripts/check-formatting.sh
    ${KIV_CLANG_FORMAT})
endfunction()

# kiv_add_test(tst_name DEPENDS targets... [SOURCES more files...] [TIMEOUT seconds])
# A Qt Test program from tests/tst_name.cpp, run without a display, with the widget library and the
# render script in the program folder.
function(kiv_add_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "DEPENDS;SOURCES" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_executable(${name} tests/${name}.cpp ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES
    AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE
    ${arg_DEPENDS} KIV::FileTestSupport Qt5::Test KIV::Warnings)
  add_dependencies(${name} resources)
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
# Some tests preload a library into programs, which the address sanitizer refuses unless told.
function(kiv_test_environment name timeout)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout} ENVIRONMENT
    "TEST_TMPDIR=${CMAKE_CURRENT_BINARY_DIR};QTEST_FUNCTION_TIMEOUT=${timeout}000;QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0;ASAN_OPTIONS=verify_asan_link_order=0;UBSAN_OPTIONS=print_stacktrace=1;KIV_SOURCE_DIR=${CMAKE_SOURCE_DIR};KIV_BIN_DIR=${KIV_BIN}")
endfunction()
