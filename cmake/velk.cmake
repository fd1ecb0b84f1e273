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
  $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-fstack-protector-strong -ffunction-sections -fdata-sections>)
target_link_options(velk_settings INTERFACE
  -static -static-libgcc -static-libstdc++ -Wl,--no-insert-timestamp -fstack-protector-strong
  -Wl,--nxcompat -Wl,--dynamicbase $<$<CONFIG:Release>:-Wl,--gc-sections>)
set(CMAKE_CXX_FLAGS_DEBUG "-Og -g1")
# Small, but for what runs once a row or a record (velk_fast). What is shipped has its symbols beside it (velk_shipped).
set(CMAKE_C_FLAGS_RELEASE "-Os -g0 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-Os -g0 -DNDEBUG")
set(CMAKE_SHARED_LIBRARY_PREFIX "")

# velk_with_symbols(<target>): the release, too, can tell the source of an address.
function(velk_with_symbols target)
  target_compile_options(${target} PRIVATE $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:C,CXX>>:-g>)
endfunction()

# velk_shipped(<target>): a program or DLL that leaves the house. The release's has no symbols: they are in a file beside
# it, whose name and checksum it bears. Without "preserve" the tool would write the time of day into the header.
function(velk_shipped target)
  velk_with_symbols(${target})
  if(CMAKE_BUILD_TYPE STREQUAL Release)
    set(symbols $<TARGET_FILE:${target}>.debug)
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
      COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug $<TARGET_FILE:${target}> ${symbols}
      COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all $<TARGET_FILE:${target}>
      COMMAND ${CMAKE_OBJCOPY} --preserve-dates --add-gnu-debuglink=${symbols} $<TARGET_FILE:${target}>)
  endif()
endfunction()

# velk_floor(<name> [floors it stands on...]): a static library of all sources of the current folder.
function(velk_floor name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_library(velk_${name} STATIC ${sources})
  target_include_directories(velk_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(velk_${name} PUBLIC velk_settings)
  velk_with_symbols(velk_${name})
  # Everything of the product runs on one thread.
  target_compile_options(velk_${name} PRIVATE $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-fno-threadsafe-statics>)
  foreach(below IN LISTS ARGN)
    target_link_libraries(velk_${name} PUBLIC velk_${below})
  endforeach()
endfunction()

# velk_fast(<target> [sources...]): for speed in the release, all of the target or those sources.
function(velk_fast target)
  if(ARGN)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "$<$<CONFIG:Release>:-O2>")
  else()
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O2>)
  endif()
endfunction()

# velk_tests(<name> [libraries...]): one GoogleTest program of all sources of the current folder, in a
# folder of its own (the Backend library is looked for beside the program). Runs under Wine.
function(velk_tests name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE velk_test_support ${ARGN})
  target_precompile_headers(${name} REUSE_FROM velk_test_support)
  target_compile_options(${name} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
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
