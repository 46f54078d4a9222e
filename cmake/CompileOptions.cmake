# SPDX-License-Identifier: BSL-1.0
# How our own code is compiled. An interface target, so that nothing of it reaches clients.

add_library(CalculationsCompileOptions INTERFACE)

# Results must not depend on the machine: no fused multiply-add, no fast-math. Hosts may trap
# floating-point exceptions: clang must not divide before it is known by what, as GCC does not.
# WebAssembly has none to trap.
if(MSVC)  # written by the compiler's documentation, not tried
  target_compile_options(CalculationsCompileOptions INTERFACE
    /fp:precise /utf-8 /permissive- /Zc:__cplusplus /EHsc /bigobj /W4
    /wd4251 /wd4275  # members of the standard library and of Boost in exported classes
    $<$<BOOL:${CALCULATIONS_WERROR}>:/WX>)
else()
  target_compile_options(CalculationsCompileOptions INTERFACE
    -ffp-contract=off
    $<$<AND:$<CXX_COMPILER_ID:Clang>,$<NOT:$<PLATFORM_ID:Emscripten>>>:-ffp-exception-behavior=maytrap>
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${CALCULATIONS_WERROR}>:-Werror>)
endif()
# The old registers of 32-bit x86 keep more digits than a double, as long as nothing is stored.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|AMD64|x86_64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_options(CalculationsCompileOptions INTERFACE
    $<IF:$<BOOL:${MSVC}>,/arch:SSE2,-msse2;-mfpmath=sse>)
endif()

option(CALCULATIONS_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(CALCULATIONS_SANITIZE)
  set(sanitizers -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all)
  add_compile_options(${sanitizers} -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS
    $<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitize-ignorelist.txt>)
  add_link_options(${sanitizers})
endif()

option(CALCULATIONS_SANITIZE_THREADS "Build with the thread sanitizer" OFF)
if(CALCULATIONS_SANITIZE_THREADS)
  add_compile_options(-fsanitize=thread)
  add_link_options(-fsanitize=thread)
endif()

option(CALCULATIONS_FUZZ "Build the fuzzers, with clang" OFF)
if(CALCULATIONS_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

option(CALCULATIONS_COVERAGE "Count the lines and branches that are reached, with clang" OFF)
if(CALCULATIONS_COVERAGE)
  add_link_options(-fprofile-instr-generate)
endif()

# For the folders of the library and of the programs: tests need not be counted.
set(coverageList ${CMAKE_CURRENT_LIST_DIR}/coverage-list.txt)
macro(count_what_tests_reach)
  if(CALCULATIONS_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping -fprofile-list=${coverageList})
  endif()
endmacro()

# Tests, command lines and reports are built more often than they run, and it is the library's speed
# that they wait for. With all that the sanitizers put in, they take longer to optimise than to run.
add_library(CalculationsQuickBuildOptions INTERFACE)
target_compile_options(CalculationsQuickBuildOptions INTERFACE
  $<$<CONFIG:Release>:-O1>
  $<$<OR:$<BOOL:${CALCULATIONS_SANITIZE}>,$<BOOL:${CALCULATIONS_SANITIZE_THREADS}>>:-O0>)
target_link_libraries(CalculationsQuickBuildOptions INTERFACE CalculationsCompileOptions)
