target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/camdatafile.h
    ${CMAKE_CURRENT_LIST_DIR}/camdatafile.cpp
    ${CMAKE_CURRENT_LIST_DIR}/camdescription.h
    ${CMAKE_CURRENT_LIST_DIR}/camdesigner.h
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerbutton.h
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerbutton.cpp
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerimplementation.h
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerimplementation.cpp
    ${CMAKE_CURRENT_LIST_DIR}/camdescriptionimplementation.h
    ${CMAKE_CURRENT_LIST_DIR}/camdescriptionimplementation.cpp
    ${CMAKE_CURRENT_LIST_DIR}/camdescriptiondata.cpp
    ${CMAKE_CURRENT_LIST_DIR}/controller.h
)
