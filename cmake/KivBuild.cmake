# What holds for every target: language, warnings, sanitizers, where programs go.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
# The sanitizer build keeps its assertions: a wrong argument is then seen where it is made.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1 -fno-omit-frame-pointer")

# The program folder: programs, library and data lie side by side and can be moved as one.
set(KIV_BIN ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${KIV_BIN})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${KIV_BIN})
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN")

find_program(KIV_CCACHE ccache)
if(KIV_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KIV_CCACHE})
endif()

# The preset tidy looks at what is ours. What the build writes lies in its own folder and meets a
# check that finds nothing there; without any check clang-tidy refuses to run.
if(CMAKE_CXX_CLANG_TIDY)
  file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy "Checks: '-*,bugprone-bad-signal-to-kill-thread'\n")
endif()

# Every target of ours links KIV::Warnings privately.
add_library(kiv_warnings INTERFACE)
add_library(KIV::Warnings ALIAS kiv_warnings)
target_compile_options(kiv_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

if(KIV_SANITIZE)
  add_compile_options(-fsanitize=${KIV_SANITIZE} -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KIV_SANITIZE})
endif()

if(KIV_FUZZ)
  # Everything counts its edges, so that the fuzzer sees into the libraries too.
  add_compile_options(-O2 -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

enable_testing()
