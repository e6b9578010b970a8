# Installs the build into a scratch prefix, checks that the installed library
# exports only the host-facing classes, then builds and runs a host program
# against it through find_package(MxCamDesigner) and find_package(MxHostSuite),
# and a program that finds the editor package alone.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}"
                RESULT_VARIABLE result OUTPUT_QUIET)
if(result)
    message(FATAL_ERROR "install failed: ${result}")
endif()

# Every defined dynamic symbol belongs to an exported class, apart from the
# linker's section markers and the standard library's template instances
# (libstdc++ declares its namespaces with default visibility). Classified by
# the mangled names, whose length prefix tells CamDesigner from
# CamDesignerImplementation; the demangled ones are searched for internal
# classes by name.
execute_process(COMMAND "${NM}" -D --defined-only --format=just-symbols "${prefix}/${LIBRARY}"
                RESULT_VARIABLE result OUTPUT_VARIABLE mangled)
execute_process(COMMAND "${NM}" -D --defined-only -C "${prefix}/${LIBRARY}"
                RESULT_VARIABLE demangle_result OUTPUT_VARIABLE demangled)
if(result OR demangle_result)
    message(FATAL_ERROR "nm failed: ${result} ${demangle_result}")
endif()
set(classes "")
foreach(class IN LISTS EXPORTED_CLASSES)
    string(LENGTH "${class}" length)
    list(APPEND classes "${length}${class}")
endforeach()
list(JOIN classes "|" classes)
string(REGEX REPLACE "\n$" "" mangled "${mangled}")
string(REPLACE "\n" ";" mangled "${mangled}")
set(foreign "")
set(own 0)
set(standard 0)
foreach(symbol IN LISTS mangled)
    if(symbol MATCHES "^_Z(NK?|TV|TI|TS)(${classes})")
        math(EXPR own "${own} + 1")
    elseif(symbol MATCHES "^_Z(NK?)?(St|9__gnu_cxx)")
        math(EXPR standard "${standard} + 1")
    elseif(NOT symbol MATCHES "^(_init|_fini|_edata|_end|__bss_start)$")
        list(APPEND foreign "${symbol}")
    endif()
endforeach()
foreach(internal CamEditorModel MotionPlan ParameterModelImplementation CamDescriptionImplementation)
    if(demangled MATCHES "${internal}")
        list(APPEND foreign "(a symbol of ${internal})")
    endif()
endforeach()
if(foreign)
    list(JOIN foreign "\n  " foreign)
    message(FATAL_ERROR "${LIBRARY} exports symbols of internal classes:\n  ${foreign}")
endif()
if(NOT demangled MATCHES "CamDescription::createCamDescription\\(")
    message(FATAL_ERROR "${LIBRARY} does not export CamDescription::createCamDescription")
endif()
list(JOIN EXPORTED_CLASSES ", " names)
message(STATUS "${LIBRARY}: ${own} symbols of ${names}, ${standard} standard library instances")

# The host program, which also uses the host suite, and a consumer of the
# editor package alone.
foreach(consumer consumer packagealone)
    execute_process(COMMAND "${CMAKE_COMMAND}" -S "${SOURCE_DIR}/${consumer}" -B "${WORK_DIR}/${consumer}"
                            "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
                    RESULT_VARIABLE result)
    if(result)
        message(FATAL_ERROR "configuring ${consumer} failed: ${result}")
    endif()
    execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK_DIR}/${consumer}" RESULT_VARIABLE result)
    if(result)
        message(FATAL_ERROR "building ${consumer} failed: ${result}")
    endif()
    execute_process(COMMAND "${WORK_DIR}/${consumer}/${consumer}" RESULT_VARIABLE result)
    if(result)
        message(FATAL_ERROR "${consumer} failed: ${result}")
    endif()
endforeach()
