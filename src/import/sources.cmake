target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/curvetextconverter.h
    ${CMAKE_CURRENT_LIST_DIR}/curvetextconverter.cpp
)
