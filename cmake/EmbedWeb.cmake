# The files of the HTML report as a library: refhost/web/ and the drawing libraries that it names,
# turned into the texts that refhost/writers/WebAssets.h declares. The packages are installed into
# the build folder, which the browser tests use as well: NONPAR_NODE_MODULES.
find_program(NPM npm REQUIRED)
find_program(NODE node REQUIRED)

set(NONPAR_WEB_FOLDER ${PROJECT_BINARY_DIR}/web)
set(NONPAR_NODE_MODULES ${NONPAR_WEB_FOLDER}/node_modules)

# nonpar_embed_web(refhost_web)
function(nonpar_embed_web target)
    set(web ${PROJECT_SOURCE_DIR}/refhost/web)
    set(installed ${NONPAR_WEB_FOLDER}/installed)
    set(source ${NONPAR_WEB_FOLDER}/WebAssets.cpp)
    set(script ${PROJECT_SOURCE_DIR}/cmake/embed_web.mjs)
    file(GLOB files CONFIGURE_DEPENDS ${web}/*.html ${web}/*.js ${web}/*.css)

    file(MAKE_DIRECTORY ${NONPAR_WEB_FOLDER})
    add_custom_command(OUTPUT ${installed} VERBATIM
        DEPENDS ${web}/package.json ${web}/package-lock.json
        COMMAND ${CMAKE_COMMAND} -E copy ${web}/package.json ${web}/package-lock.json
                ${NONPAR_WEB_FOLDER}
        COMMAND ${NPM} ci --ignore-scripts --no-audit --no-fund --silent
        COMMAND ${CMAKE_COMMAND} -E touch ${installed}
        WORKING_DIRECTORY ${NONPAR_WEB_FOLDER}
        COMMENT "Installing the drawing libraries of the report")
    add_custom_command(OUTPUT ${source} VERBATIM
        DEPENDS ${installed} ${script} ${files}
        COMMAND ${NODE} ${script} ${web} ${NONPAR_NODE_MODULES} ${source}
        COMMENT "Embedding the files of the report")

    add_library(${target} STATIC ${source})
    target_link_libraries(${target} PRIVATE nonpar_warnings)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_CLANG_TIDY "")
endfunction()
