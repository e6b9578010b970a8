# Installs the build into a scratch prefix, then builds and runs a host
# program against it through find_package(MxCamDesigner).
file(REMOVE_RECURSE "${WORK_DIR}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/prefix"
                RESULT_VARIABLE result OUTPUT_QUIET)
if(result)
    message(FATAL_ERROR "install failed: ${result}")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${WORK_DIR}/consumer"
                        "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
                RESULT_VARIABLE result)
if(result)
    message(FATAL_ERROR "configuring the consumer failed: ${result}")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK_DIR}/consumer" RESULT_VARIABLE result)
if(result)
    message(FATAL_ERROR "building the consumer failed: ${result}")
endif()
execute_process(COMMAND "${WORK_DIR}/consumer/consumer" RESULT_VARIABLE result)
if(result)
    message(FATAL_ERROR "the consumer failed: ${result}")
endif()
