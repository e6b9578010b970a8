target_sources(MxCamDesigner PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/loadnewmotionplancommand.h
    ${CMAKE_CURRENT_LIST_DIR}/loadnewmotionplancommand.cpp
)
