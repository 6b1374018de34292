# One folder of src/ is one module: a static library that shows its own folder, and no other, to whoever
# links to it. The include directory of a module holds a single link to its folder, so that an include of
# a module that was not named in DEPENDS does not compile.

# Warnings and checks for all that is compiled.
add_library(tavrix_warnings INTERFACE)
target_compile_options(tavrix_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow
                                                 $<$<BOOL:${TAVRIX_WERROR}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimised, `"text" + std::string(...)` is taken for overlapping memory (GCC bug 105651).
    target_compile_options(tavrix_warnings INTERFACE -Wno-restrict)
endif()
if(TAVRIX_ASSERTIONS)
    target_compile_definitions(tavrix_warnings INTERFACE _GLIBCXX_ASSERTIONS)
endif()

add_library(tavrix_sanitizers INTERFACE)
if(TAVRIX_SANITIZE)
    target_compile_options(tavrix_sanitizers INTERFACE -fsanitize=${TAVRIX_SANITIZE} -fno-sanitize-recover=all
                                                       -fno-omit-frame-pointer)
    target_link_options(tavrix_sanitizers INTERFACE -fsanitize=${TAVRIX_SANITIZE})
endif()
if(TAVRIX_FUZZ)
    target_compile_options(tavrix_sanitizers INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Both: for what the program consists of.
add_library(tavrix_options INTERFACE)
target_link_libraries(tavrix_options INTERFACE tavrix_warnings tavrix_sanitizers)

# What nearly every file includes.
if(TAVRIX_PRECOMPILE)
    set(source ${PROJECT_BINARY_DIR}/generated/StandardHeaders.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "// Nothing but the headers that are compiled with it.\n")
    add_library(standard_headers OBJECT ${source})
    target_link_libraries(standard_headers PRIVATE tavrix_options)
    target_precompile_headers(standard_headers PRIVATE <algorithm> <array> <cstdint> <functional> <map> <memory> <optional>
                              <span> <string> <string_view> <utility> <vector>)
endif()

# tavrix_module(NAME FOLDER [DEPENDS module...] [LIBRARIES library...] [EXCLUDE file...])
#   NAME    target name without the prefix, e.g. core for tavrix_core
#   FOLDER  the folder below src/, e.g. platform/forms; all its .cpp files are compiled
#   EXCLUDE files of the folder that belong to programs
function(tavrix_module name folder)
    cmake_parse_arguments(ARG "" "" "DEPENDS;LIBRARIES;EXCLUDE" ${ARGN})
    set(source_dir ${PROJECT_SOURCE_DIR}/src/${folder})
    set(include_dir ${PROJECT_BINARY_DIR}/include/${name})
    cmake_path(GET folder PARENT_PATH parent)
    file(MAKE_DIRECTORY ${include_dir}/${parent})
    file(CREATE_LINK ${source_dir} ${include_dir}/${folder} SYMBOLIC)

    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${source_dir}/*.cpp)
    if(ARG_EXCLUDE)
        list(TRANSFORM ARG_EXCLUDE PREPEND ${source_dir}/)
        list(REMOVE_ITEM sources ${ARG_EXCLUDE})
    endif()
    set(depends ${ARG_DEPENDS})
    list(TRANSFORM depends PREPEND tavrix_)
    if(sources)
        add_library(tavrix_${name} STATIC ${sources})
        target_include_directories(tavrix_${name} PUBLIC ${include_dir})
        target_link_libraries(tavrix_${name} PUBLIC ${depends} PRIVATE tavrix_options ${ARG_LIBRARIES})
        # With the toolkit other flags hold.
        if(TAVRIX_PRECOMPILE AND NOT ARG_LIBRARIES MATCHES "Qt6::")
            target_precompile_headers(tavrix_${name} REUSE_FROM standard_headers)
        endif()
    else()
        add_library(tavrix_${name} INTERFACE)
        target_include_directories(tavrix_${name} INTERFACE ${include_dir})
        target_link_libraries(tavrix_${name} INTERFACE ${depends})
    endif()
endfunction()

# How the tests are compiled. The modules are what is measured and shipped; optimising the tests as far would double the
# time to build them. Undefined behaviour is looked for in the modules alone: in the tests it would take a third of that time.
function(tavrix_test_options name)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE tavrix_warnings)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
        target_compile_options(${name} PRIVATE -O1)
    elseif(TAVRIX_SANITIZE)
        string(REGEX REPLACE ",?undefined,?" "" sanitizers "${TAVRIX_SANITIZE}")
        target_compile_options(${name} PRIVATE -O0 -g0)
        if(sanitizers)
            target_compile_options(${name} PRIVATE -fsanitize=${sanitizers} -fno-omit-frame-pointer)
        endif()
        target_link_options(${name} PRIVATE -fsanitize=${TAVRIX_SANITIZE})
    endif()
endfunction()

# The precompiled headers of a test that depends on these modules.
function(tavrix_test_headers name)
    if(tavrix_qt IN_LIST ARGN OR tavrix_idle IN_LIST ARGN)
        return()  # with the toolkit other flags hold
    endif()
    if(tavrix_program IN_LIST ARGN AND tavrix_headless IN_LIST ARGN)
        target_precompile_headers(${name} REUSE_FROM program_headers)
    else()
        target_precompile_headers(${name} REUSE_FROM test_headers)
    endif()
endfunction()

# The program NAME, a test, is one of those that also run with sanitizers.
add_custom_target(sanitized_tests)
function(tavrix_sanitized name)
    add_dependencies(sanitized_tests ${name})
    set_property(TEST ${name} APPEND PROPERTY LABELS sanitized)
endfunction()

# tavrix_test(NAME SOURCES source... DEPENDS module... [LIBRARIES library...] [ENVIRONMENT VAR=value...])
# A GoogleTest program of the modules that it names; CTest runs it as one test. Those without the toolkit also run with
# sanitizers (label and target `sanitized_tests`): the toolkit and what it loads have leaks of their own.
function(tavrix_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LIBRARIES;ENVIRONMENT" ${ARGN})
    list(TRANSFORM ARG_DEPENDS PREPEND tavrix_)
    add_executable(${name} ${ARG_SOURCES})
    tavrix_test_options(${name})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gtest_main ${ARG_LIBRARIES})
    tavrix_test_headers(${name} ${ARG_DEPENDS})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${ARG_ENVIRONMENT}" TIMEOUT 300)
    if(NOT tavrix_qt IN_LIST ARG_DEPENDS)
        tavrix_sanitized(${name})
    endif()
endfunction()
