# A room is a folder with one concept; each becomes a static library, and each folder of tests one
# GoogleTest program.

# nonpar_room(backend/nonpar/views/onesample backend_views_onesample): a static library of the
# folder's sources.
function(nonpar_room folder target)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
    add_library(${target} STATIC ${sources})
    target_link_libraries(${target} PRIVATE nonpar_warnings)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# Tests are much code that runs once: optimizing it takes longer than all its runs.
function(nonpar_compile_quickly)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "-O0;$<$<CONFIG:Debug>:-g1>")
endfunction()

# Every folder below tests/ that holds sources becomes one program, named after its path.
function(nonpar_tests)
    file(GLOB support CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/*.cpp)
    add_library(tests_support STATIC ${support})
    nonpar_compile_quickly(${support})
    target_link_libraries(tests_support PUBLIC nonpar_warnings refhost_all GTest::gtest)
    target_include_directories(tests_support PUBLIC ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(tests_support PUBLIC NONPAR_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/tests
         ${PROJECT_SOURCE_DIR}/tests/*Test.cpp)
    set(folders)
    foreach(source IN LISTS sources)
        get_filename_component(folder ${source} DIRECTORY)
        list(APPEND folders ${folder})
    endforeach()
    list(REMOVE_DUPLICATES folders)
    foreach(folder IN LISTS folders)
        string(REPLACE "/" "_" name ${folder})
        file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
        add_executable(test_${name} ${files})
        nonpar_compile_quickly(${files})
        target_link_libraries(test_${name} PRIVATE nonpar_warnings plugin_all refhost_all
                              GTest::gmock GTest::gtest GTest::gtest_main tests_support)
        gtest_discover_tests(test_${name} TEST_PREFIX "${folder}/" DISCOVERY_TIMEOUT 60)
    endforeach()
endfunction()

# Files of refhost/<folder> that the tool reads at run time, copied to where it looks for them.
function(nonpar_share folder ending)
    file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/refhost/${folder}/*.${ending})
    set(copies)
    foreach(file IN LISTS files)
        get_filename_component(name ${file} NAME)
        set(copy ${PROJECT_BINARY_DIR}/share/nonpar/${folder}/${name})
        add_custom_command(OUTPUT ${copy} DEPENDS ${file} VERBATIM
                           COMMAND ${CMAKE_COMMAND} -E copy ${file} ${copy})
        list(APPEND copies ${copy})
    endforeach()
    add_custom_target(share_${folder} ALL DEPENDS ${copies})
    add_dependencies(nonpar share_${folder})
    install(FILES ${files} DESTINATION share/nonpar/${folder})
endfunction()
