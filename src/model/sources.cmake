target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/cameditormodel.h
    ${CMAKE_CURRENT_LIST_DIR}/cameditormodel.cpp
    ${CMAKE_CURRENT_LIST_DIR}/jsondifference.h
    ${CMAKE_CURRENT_LIST_DIR}/jsondifference.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionlaw.h
    ${CMAKE_CURRENT_LIST_DIR}/motionlaw.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionpoint.h
    ${CMAKE_CURRENT_LIST_DIR}/motionpoint.cpp
    ${CMAKE_CURRENT_LIST_DIR}/fixedscaling.h
    ${CMAKE_CURRENT_LIST_DIR}/scaling.h
    ${CMAKE_CURRENT_LIST_DIR}/scaling.cpp
    ${CMAKE_CURRENT_LIST_DIR}/scalingimplementation.h
    ${CMAKE_CURRENT_LIST_DIR}/scalingimplementation.cpp
    ${CMAKE_CURRENT_LIST_DIR}/steps.h
    ${CMAKE_CURRENT_LIST_DIR}/steps.cpp
)
