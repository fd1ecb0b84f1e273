# Compiler settings and the three ways a target comes into being here: a floor of the product,
# a stand-in of the devkit, a test program.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE OFF)

set(velk_without_threads)
if(CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 13)
  set(velk_without_threads "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-include ${CMAKE_SOURCE_DIR}/cmake/withoutThreads.h>")
endif()

add_library(velk_settings INTERFACE)
target_compile_definitions(velk_settings INTERFACE
  UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
  WINVER=0x0501 _WIN32_WINNT=0x0501 _WIN32_IE=0x0600)
target_compile_options(velk_settings INTERFACE ${velk_without_threads}
  $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wconversion -Wsign-conversion -Wshadow
    -Woverloaded-virtual -Werror -fvisibility=hidden>
  # 32-bit Windows enters exports, COM methods, window procedures and timers with a stack aligned to 4 bytes only.
  $<$<COMPILE_LANGUAGE:C,CXX>:-mincoming-stack-boundary=2>
  -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=.
  $<$<AND:$<CONFIG:Debug>,$<COMPILE_LANGUAGE:CXX>>:-D_GLIBCXX_ASSERTIONS -fsanitize=undefined
    -fsanitize-undefined-trap-on-error -fstack-protector-strong>
  # A stack that need not be aligned further takes no code in each function: nothing here uses vector instructions.
  $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-fstack-protector-strong -ffunction-sections -fdata-sections
    -mpreferred-stack-boundary=2>)
target_link_options(velk_settings INTERFACE
  -static -static-libgcc -static-libstdc++ -Wl,--no-insert-timestamp -fstack-protector-strong
  -Wl,--nxcompat -Wl,--dynamicbase $<$<CONFIG:Release>:-Wl,--gc-sections>)
set(CMAKE_CXX_FLAGS_DEBUG "-Og -g1")
# Small, but for what runs once a row or a record (velk_fast). What is shipped has its symbols beside it (velk_shipped):
# functions and lines. The places of variables differ between two builds now and then.
set(CMAKE_C_FLAGS_RELEASE "-Os -g0 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-Os -g1 -DNDEBUG")
set(CMAKE_SHARED_LIBRARY_PREFIX "")

# velk_shipped(<target>): a program or DLL that leaves the house. The release's has no symbols: they are in a file beside
# it, whose name and checksum it bears. Without "preserve" the tool would write the time of day into the header.
function(velk_shipped target)
  # Linked by itself: from a library it would come behind the imports that it stands for.
  target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src/base/linked/oldSystems.cpp)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src)
  if(CMAKE_BUILD_TYPE STREQUAL Release)
    set(symbols $<TARGET_FILE:${target}>.debug)
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
      COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug $<TARGET_FILE:${target}> ${symbols}
      COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all $<TARGET_FILE:${target}>
      COMMAND ${CMAKE_OBJCOPY} --preserve-dates --add-gnu-debuglink=${symbols} $<TARGET_FILE:${target}>)
  endif()
endfunction()

# A source includes what it needs all the same, and can stand alone: OFF, of the option or of the environment's variable,
# shows whether it does.
set(quick ON)
if(DEFINED ENV{VELK_QUICK_BUILD})
  set(quick $ENV{VELK_QUICK_BUILD})
endif()
option(VELK_QUICK_BUILD "Libraries' headers are read once for all, tests are compiled several at a time" ${quick})

# Everything of the product runs on one thread.
set(velk_one_thread $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-fno-threadsafe-statics>)

# velk_precompiled(<target> <set>): the headers of the standard library and the system are read once for all such targets,
# most of what compiling a source takes; "floors" or "programs", by their options.
function(velk_precompiled target set)
  if(NOT VELK_QUICK_BUILD)
    return()
  endif()
  if(NOT TARGET velk_headers_of_${set})
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/generated/headers.cpp CONTENT "")
    add_library(velk_headers_of_${set} OBJECT ${CMAKE_BINARY_DIR}/generated/headers.cpp)
    target_link_libraries(velk_headers_of_${set} PRIVATE velk_settings)
    target_precompile_headers(velk_headers_of_${set} PRIVATE <algorithm> <array> <functional> <memory> <optional> <span>
      <string> <string_view> <vector> ${CMAKE_SOURCE_DIR}/src/base/win32.h)
    velk_for_caches(velk_headers_of_${set})
    if(set STREQUAL floors)
      target_compile_options(velk_headers_of_${set} PRIVATE ${velk_one_thread})
    endif()
  endif()
  target_precompile_headers(${target} REUSE_FROM velk_headers_of_${set})
  velk_for_caches(${target})
endfunction()

# velk_for_caches(<target>): a compiler cache can be asked in spite of precompiled headers.
function(velk_for_caches target)
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()

# velk_floor(<name> [floors it stands on...]): a static library of all sources of the current folder.
function(velk_floor name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_library(velk_${name} STATIC ${sources})
  target_include_directories(velk_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(velk_${name} PUBLIC velk_settings)
  velk_precompiled(velk_${name} floors)
  target_compile_options(velk_${name} PRIVATE ${velk_one_thread})
  foreach(below IN LISTS ARGN)
    target_link_libraries(velk_${name} PUBLIC velk_${below})
  endforeach()
endfunction()

# velk_fast(<target> [sources...]): for speed in the release, all of the target or those sources.
function(velk_fast target)
  if(NOT CMAKE_BUILD_TYPE STREQUAL Release)
    return()
  endif()
  set(sources ${ARGN})
  if(NOT sources)
    get_target_property(sources ${target} SOURCES)
  endif()
  # What is read once is read for the release's other options.
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# In one unit a local name may be that of another source's function. Warnings' order is the libraries'.
add_library(velk_several_at_a_time INTERFACE)
target_compile_options(velk_several_at_a_time INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-shadow>)

# velk_tests(<name> [libraries...]): one GoogleTest program of all sources of the current folder, in a
# folder of its own (the Backend library is looked for beside the program). Runs under Wine.
function(velk_tests name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE velk_test_support ${ARGN})
  if(VELK_QUICK_BUILD)
    target_precompile_headers(${name} REUSE_FROM velk_test_support)
    velk_for_caches(${name})
    # Most of what compiling a test takes is GoogleTest's templates, made once for the sources of one unit.
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    target_link_libraries(${name} PRIVATE velk_several_at_a_time)
  endif()
  add_test(NAME ${name} COMMAND ${CMAKE_SOURCE_DIR}/scripts/wine-test $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 RESOURCE_LOCK ${name})
endfunction()

# velk_tests_again(<name> <locale>=<code page>...): the same program once more in processes of other ANSI code pages.
# Wine takes the code page from the locale; scripts/setup makes the locales.
function(velk_tests_again name)
  foreach(place IN LISTS ARGN)
    string(REPLACE "=" ";" place ${place})
    list(GET place 0 locale)
    list(GET place 1 code_page)
    add_test(NAME ${name}_${code_page} COMMAND ${CMAKE_SOURCE_DIR}/scripts/wine-test $<TARGET_FILE:${name}>)
    # Both write in the same folder.
    set_tests_properties(${name}_${code_page} PROPERTIES TIMEOUT 600 RESOURCE_LOCK ${name} ENVIRONMENT
      "VELK_LOCALE=${locale}.UTF-8;VELK_EXPECTED_CODE_PAGE=${code_page}")
  endforeach()
endfunction()
