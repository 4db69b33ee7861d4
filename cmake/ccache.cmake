# Compilers run through ccache where it is installed; the presets include this. The sloppiness is what
# precompiled headers need: no file of ours depends on __TIME__ or on a macro that a header passes on.
# With the base folder several clones share what g++ compiles without debug info, which names folders.
find_program(VELA_CCACHE ccache)
if(VELA_CCACHE)
    foreach(language C CXX)
        if(NOT CMAKE_${language}_COMPILER_LAUNCHER)
            set(CMAKE_${language}_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
                CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
                ${VELA_CCACHE})
        endif()
    endforeach()
endif()
