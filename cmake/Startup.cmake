# How the tool is linked so that it starts quickly and runs quickly. Tests and builds with sanitizers
# take the libraries as they come.

# The XML library's archive, without its way to the network: as a shared library it takes some forty
# others along. Nor does it set up what only schemas need. Symbols are bound inside of the library,
# since the archive's code is made to stay where it is linked.
function(nonpar_link_xerces target)
    find_library(XERCES_ARCHIVE NAMES libxerces-c.a)
    if(NOT XERCES_ARCHIVE OR NONPAR_SANITIZE)
        target_link_libraries(${target} PRIVATE XercesC::XercesC)
        return()
    endif()
    target_sources(${target} PRIVATE
                   ${PROJECT_SOURCE_DIR}/refhost/framework/linked/NoNetwork.cpp
                   ${PROJECT_SOURCE_DIR}/refhost/framework/linked/NoSchemas.cpp)
    foreach(step 23initializeRangeTokenMap 27initializeRegularExpression
            34initializeDatatypeValidatorFactory)
        target_link_options(${target} PRIVATE
                            -Wl,--wrap=_ZN11xercesc_3_214XMLInitializer${step}Ev)
    endforeach()
    target_link_libraries(${target} PRIVATE ${XERCES_ARCHIVE} ICU::uc ICU::data)
    target_link_options(${target} PRIVATE -Wl,--exclude-libs,libxerces-c.a -Wl,-Bsymbolic)
endfunction()

# Output is many small pieces that one thread makes and another drops; the standard library's own
# allocator takes twice as long over them.
function(nonpar_link_allocator target)
    find_library(JEMALLOC jemalloc REQUIRED)
    if(NOT NONPAR_SANITIZE)
        target_link_options(${target} PRIVATE -Wl,--no-as-needed)
        target_link_libraries(${target} PRIVATE ${JEMALLOC})
    endif()
endfunction()
