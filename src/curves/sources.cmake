target_sources(MxCamDesigner PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/ascendingsearch.h
    ${CMAKE_CURRENT_LIST_DIR}/camsection.h
    ${CMAKE_CURRENT_LIST_DIR}/camsection.cpp
    ${CMAKE_CURRENT_LIST_DIR}/camsectionfifthpolynomial.h
    ${CMAKE_CURRENT_LIST_DIR}/camsectionfifthpolynomial.cpp
    ${CMAKE_CURRENT_LIST_DIR}/cubicspline.h
    ${CMAKE_CURRENT_LIST_DIR}/cubicspline.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionplan.h
    ${CMAKE_CURRENT_LIST_DIR}/motionplan.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionplancubicspline.h
    ${CMAKE_CURRENT_LIST_DIR}/motionplancubicspline.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionplanfactory.h
    ${CMAKE_CURRENT_LIST_DIR}/motionplanfactory.cpp
    ${CMAKE_CURRENT_LIST_DIR}/motionplanvdi.h
    ${CMAKE_CURRENT_LIST_DIR}/motionplanvdi.cpp
)
