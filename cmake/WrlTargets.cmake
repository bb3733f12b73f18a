# What every target of this project shares, as interface targets and two functions.

# Warnings, linked PRIVATE by every target of ours.
add_library(wrl_warnings INTERFACE)
target_compile_options(wrl_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${WRL_WERROR}>:-Werror>
  # GCC 12 warns of overlapping copies inside std::string's own operator+ when it optimises; GCC 13 does not.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

# Language level, include root and sanitizers, linked by every target of ours.
add_library(wrl_common INTERFACE)
target_compile_features(wrl_common INTERFACE cxx_std_20)
target_include_directories(wrl_common INTERFACE "${PROJECT_SOURCE_DIR}")
# A fused multiply-add would change the last bit of results that must not depend on the machine.
target_compile_options(wrl_common INTERFACE -ffp-contract=off)
# The library's own checks of indices and iterators, where speed is not what is asked for.
target_compile_definitions(wrl_common INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
if(WRL_SANITIZE)
  # -O1 makes the instrumented code several times faster, which is what lets every test run under it; the tests themselves
  # run once and short, so that optimising them takes longer than it saves. Lines are all that a report needs of debug
  # information, and the rest of it costs a fifth of the compile time.
  target_compile_options(wrl_common INTERFACE -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
    -fno-omit-frame-pointer $<IF:$<BOOL:$<TARGET_PROPERTY:WRL_IS_TEST>>,-O0,-O1> -g1)
  target_link_options(wrl_common INTERFACE -fsanitize=address,undefined,float-cast-overflow)
endif()

# Every line of ours tells libFuzzer where an input took it, and whatever a sanitizer finds ends the process.
if(WRL_BUILD_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "WRL_BUILD_FUZZ needs clang, which brings libFuzzer.")
  endif()
  target_compile_options(wrl_common INTERFACE -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow
    -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  target_link_options(wrl_common INTERFACE -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow)
  target_compile_definitions(wrl_common INTERFACE _GLIBCXX_ASSERTIONS)
endif()

# wrl_add_library(NAME SOURCES... ) makes a static, position-independent library whose symbols stay hidden in the module.
function(wrl_add_library name)
  add_library(${name} STATIC ${ARGN})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_link_libraries(${name} PUBLIC wrl_common PRIVATE wrl_warnings)
endfunction()

# The headers that nearly every test begins with, parsed once for all of them. Only where tests are not optimised: an
# optimising GCC 12 warns of the library's code in them, which it no longer takes for the library's. Not for ccache, which
# keeps nothing of what was compiled with them unless it is told to.
if(WRL_BUILD_TESTS AND WRL_SANITIZE AND NOT CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache")
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/test_headers.cpp" CONTENT "// Only its headers matter.\n")
  add_library(wrl_test_headers OBJECT "${PROJECT_BINARY_DIR}/test_headers.cpp")
  set_target_properties(wrl_test_headers PROPERTIES CXX_EXTENSIONS OFF WRL_IS_TEST ON)
  target_link_libraries(wrl_test_headers PRIVATE wrl_common wrl_warnings GTest::gtest)
  target_precompile_headers(wrl_test_headers PRIVATE <gtest/gtest.h> <algorithm> <array> <cmath> <filesystem> <fstream>
    <functional> <map> <sstream>)
endif()

# wrl_add_test(NAME SOURCES <files...> LIBRARIES <targets...>) makes one GoogleTest executable and registers its tests.
function(wrl_add_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF WRL_IS_TEST ON)
  target_link_libraries(${name} PRIVATE wrl_common wrl_warnings ${arg_LIBRARIES} GTest::gtest_main)
  if(TARGET wrl_test_headers)
    target_precompile_headers(${name} REUSE_FROM wrl_test_headers)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
endfunction()
