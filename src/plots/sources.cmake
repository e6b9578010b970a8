target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/curveplot.h
    ${CMAKE_CURRENT_LIST_DIR}/curveplot.cpp
    ${CMAKE_CURRENT_LIST_DIR}/curveplotstack.h
    ${CMAKE_CURRENT_LIST_DIR}/curveplotstack.cpp
    ${CMAKE_CURRENT_LIST_DIR}/cursoroverlay.h
    ${CMAKE_CURRENT_LIST_DIR}/cursoroverlay.cpp
    ${CMAKE_CURRENT_LIST_DIR}/densecurve.h
    ${CMAKE_CURRENT_LIST_DIR}/densecurve.cpp
    ${CMAKE_CURRENT_LIST_DIR}/measuringtool.h
    ${CMAKE_CURRENT_LIST_DIR}/measuringtool.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionpointdragger.h
    ${CMAKE_CURRENT_LIST_DIR}/motionpointdragger.cpp
    ${CMAKE_CURRENT_LIST_DIR}/plainscaledraw.h
    ${CMAKE_CURRENT_LIST_DIR}/previewview.h
    ${CMAKE_CURRENT_LIST_DIR}/previewview.cpp
)
