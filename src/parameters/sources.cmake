target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/parametermodel.h
    ${CMAKE_CURRENT_LIST_DIR}/parametermodelimplementation.h
    ${CMAKE_CURRENT_LIST_DIR}/parametermodelimplementation.cpp
    ${CMAKE_CURRENT_LIST_DIR}/parametermodeltable.cpp
    ${CMAKE_CURRENT_LIST_DIR}/parametermodelwrite.cpp
    ${CMAKE_CURRENT_LIST_DIR}/calculatedtablemodel.h
    ${CMAKE_CURRENT_LIST_DIR}/calculatedtablemodel.cpp
    ${CMAKE_CURRENT_LIST_DIR}/calculatedtableview.h
    ${CMAKE_CURRENT_LIST_DIR}/calculatedtableview.cpp
    ${CMAKE_CURRENT_LIST_DIR}/gridpointparameterview.h
    ${CMAKE_CURRENT_LIST_DIR}/gridpointparameterview.cpp
    ${CMAKE_CURRENT_LIST_DIR}/saveparameterprogress.h
    ${CMAKE_CURRENT_LIST_DIR}/saveparameterprogress.cpp
)
