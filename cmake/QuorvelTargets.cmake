# The kinds of target that the folders are made of.

option(QUORVEL_SANITIZE "Native build: address and undefined-behaviour sanitizers" OFF)
option(QUORVEL_COVERAGE "Count the lines that the tests reach" OFF)
option(QUORVEL_FUZZ "Native build with clang: fuzzers, with the sanitizers" OFF)

add_library(quorvel_options INTERFACE)
# Two of GCC 12's warnings are wrong about the standard library's strings and about the thread
# block at address 0 of its segment.
target_compile_options(quorvel_options INTERFACE -Wall -Wextra -Wpedantic -Werror
                                                 $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(quorvel_options INTERFACE ${PROJECT_SOURCE_DIR}/common
                                                     ${PROJECT_SOURCE_DIR})
if(WIN32)
  target_compile_options(quorvel_options INTERFACE --param=min-pagesize=0)
  # Narrow literals are code page 932, as are all narrow texts; library bounds are checked in what
  # is shipped, too.
  target_compile_options(quorvel_options INTERFACE -fexec-charset=CP932)
  target_compile_definitions(quorvel_options INTERFACE _WIN32_WINNT=0x0A00 _GLIBCXX_ASSERTIONS)
  target_link_options(
    quorvel_options INTERFACE -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat
    $<$<CONFIG:Release>:-s>)
  set(CMAKE_RC_FLAGS "-c 65001 -I ${PROJECT_SOURCE_DIR} -I ${PROJECT_BINARY_DIR}/res")
elseif(QUORVEL_SANITIZE)
  # The compiler's flow analysis misjudges instrumented code.
  target_compile_options(quorvel_options INTERFACE -Wno-maybe-uninitialized)
  target_compile_options(quorvel_options INTERFACE -fsanitize=address,undefined
                                                   -fno-sanitize-recover=all -g)
  target_compile_definitions(quorvel_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(quorvel_options INTERFACE -fsanitize=address,undefined)
elseif(QUORVEL_FUZZ)
  target_compile_options(quorvel_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                   -fno-sanitize-recover=all -g)
  target_link_options(quorvel_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUORVEL_COVERAGE)
  target_compile_options(quorvel_options INTERFACE --coverage -O0 -g)
  target_link_options(quorvel_options INTERFACE --coverage)
endif()

# Of tests, which take longer to build than to run: not optimised, but where the compiler is to tell all
# that it can find out.
add_library(quorvel_test_options INTERFACE)
target_link_libraries(quorvel_test_options INTERFACE quorvel_options)
if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
  target_compile_options(quorvel_test_options INTERFACE -O0)
endif()

# Parsing headers was four fifths of the time for a source; a target does that for the usual ones once.
# In precompiled headers GCC 12 no longer knows which are the system's, and tells of faults in them that
# are none. `make lint` compiles without them, and where lines are counted or fuzzed there are none.
if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS AND NOT QUORVEL_COVERAGE AND NOT QUORVEL_FUZZ)
  target_precompile_headers(
    quorvel_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:${PROJECT_SOURCE_DIR}/cmake/precompiled.h>)
  target_compile_options(
    quorvel_options INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()

# A library of the product. PORTABLE sources are window-free: natively they make a static library of
# the same name; WINDOWS sources are added in the DLL, NATIVE sources, which stand for the platform's
# part where there is none, in the static library.
function(quorvel_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "PORTABLE;WINDOWS;NATIVE;DEPENDS")
  if(WIN32)
    add_library(${name} SHARED ${arg_PORTABLE} ${arg_WINDOWS})
    set_target_properties(${name} PROPERTIES PREFIX "" DEFINE_SYMBOL "")
    string(TOUPPER ${name} upper)
    target_compile_definitions(${name} PRIVATE ${upper}_BUILD)
  else()
    add_library(${name} STATIC ${arg_PORTABLE} ${arg_NATIVE})
  endif()
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:quorvel_options> PUBLIC ${arg_DEPENDS})
  # The build's own targets see the sources' include folder; a host gets it from the package.
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/common>
                                            $<INSTALL_INTERFACE:include/quorvel>)
endfunction()
