# Compilers run through ccache where it is installed; the presets include this.
find_program(VELA_CCACHE ccache)
if(VELA_CCACHE)
    foreach(language C CXX)
        if(NOT CMAKE_${language}_COMPILER_LAUNCHER)
            set(CMAKE_${language}_COMPILER_LAUNCHER ${VELA_CCACHE})
        endif()
    endforeach()
endif()
