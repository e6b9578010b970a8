target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/previewview.h
    ${CMAKE_CURRENT_LIST_DIR}/previewview.cpp
)
