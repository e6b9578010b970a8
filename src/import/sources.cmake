target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/curvetextconverter.h
    ${CMAKE_CURRENT_LIST_DIR}/curvetextconverter.cpp
    ${CMAKE_CURRENT_LIST_DIR}/curvetextwriter.h
    ${CMAKE_CURRENT_LIST_DIR}/curvetextwriter.cpp
    ${CMAKE_CURRENT_LIST_DIR}/comparerow.h
    ${CMAKE_CURRENT_LIST_DIR}/comparerow.cpp
    ${CMAKE_CURRENT_LIST_DIR}/externalcurveimportview.ui
    ${CMAKE_CURRENT_LIST_DIR}/externalcurveimportview.h
    ${CMAKE_CURRENT_LIST_DIR}/externalcurveimportview.cpp
    ${CMAKE_CURRENT_LIST_DIR}/gridpointexportdialog.ui
    ${CMAKE_CURRENT_LIST_DIR}/gridpointexportdialog.h
    ${CMAKE_CURRENT_LIST_DIR}/gridpointexportdialog.cpp
)
