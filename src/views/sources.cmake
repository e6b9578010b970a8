target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerview.ui
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerviewimplementation.h
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerviewimplementation.cpp
)
