# What is fuzzed is a library that fuzzers and the replay of kept cases share; a fuzzer is made of it
# for each target, with the preset "fuzz" only.
set(NONPAR_FUZZ_TARGETS document tables chart job)

function(nonpar_fuzz)
    nonpar_room(fuzz/targets fuzz_targets)
    target_link_libraries(fuzz_targets PUBLIC plugin_all refhost_all)
    target_compile_definitions(fuzz_targets PRIVATE NONPAR_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    add_executable(fuzz_replay fuzz/Replay.cpp)
    target_link_libraries(fuzz_replay PRIVATE nonpar_warnings fuzz_targets)

    set(seeds ${PROJECT_BINARY_DIR}/fuzz/seeds)
    add_test(NAME fuzz/seeds COMMAND ${PROJECT_SOURCE_DIR}/fuzz/make_seeds.py
             $<TARGET_FILE:nonpar> ${seeds})
    set_tests_properties(fuzz/seeds PROPERTIES FIXTURES_SETUP fuzz_seeds)
    foreach(target IN LISTS NONPAR_FUZZ_TARGETS)
        set(kept ${PROJECT_SOURCE_DIR}/fuzz/regressions/${target})
        add_test(NAME fuzz/${target} COMMAND fuzz_replay ${target} ${kept} ${seeds}/${target})
        set_tests_properties(fuzz/${target} PROPERTIES FIXTURES_REQUIRED fuzz_seeds)
    endforeach()

    if(NONPAR_FUZZ)
        # The library's schema hashes a number by its whole part, however large it is.
        set_property(SOURCE refhost/job/CheckedJson.cpp APPEND PROPERTY
                     COMPILE_OPTIONS -fno-sanitize=float-cast-overflow)
        nonpar_room(fuzz/mutators fuzz_mutators)
        add_custom_target(fuzzers)
        add_dependencies(fuzzers fuzz_replay nonpar share_templates share_texts)
        foreach(target IN LISTS NONPAR_FUZZ_TARGETS)
            add_executable(fuzz_${target} fuzz/Fuzzer.cpp)
            target_link_libraries(fuzz_${target} PRIVATE nonpar_warnings fuzz_mutators fuzz_targets)
            target_compile_definitions(fuzz_${target} PRIVATE NONPAR_FUZZ_TARGET="${target}")
            target_link_options(fuzz_${target} PRIVATE -fsanitize=fuzzer)
            add_dependencies(fuzzers fuzz_${target})
        endforeach()
    endif()
endfunction()
