# tavrix_fuzz(NAME LIBRARIES library...)
#
# The fuzz target bin/fuzz_NAME of Fuzz_NAME.cpp, whose seeds lie beside it. The fuzz preset links it with clang's
# libFuzzer; all others make it a test that goes through the seeds, so that targets and seeds stay true.
function(tavrix_fuzz name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES")
    add_executable(fuzz_${name} Fuzz_${name}.cpp)
    target_link_libraries(fuzz_${name} PRIVATE ${arg_LIBRARIES} tavrix_options)
    set_target_properties(fuzz_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    if(TAVRIX_FUZZ)
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    else()
        target_sources(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/Replay.cpp)
        add_test(NAME seeds_${name} COMMAND fuzz_${name} ${CMAKE_CURRENT_SOURCE_DIR}/seeds)
        add_dependencies(sanitized_tests fuzz_${name})
        set_property(TEST seeds_${name} APPEND PROPERTY LABELS sanitized)
    endif()
endfunction()
