target_sources(MxHostSuite PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/defaultpathsetting.h
    ${CMAKE_CURRENT_LIST_DIR}/defaultpathsetting.cpp
    ${CMAKE_CURRENT_LIST_DIR}/helpwidget.h
    ${CMAKE_CURRENT_LIST_DIR}/helpwidget.cpp
    ${CMAKE_CURRENT_LIST_DIR}/parametercatalogue.h
    ${CMAKE_CURRENT_LIST_DIR}/parametercatalogue.cpp
    ${CMAKE_CURRENT_LIST_DIR}/parameterdefinition.h
    ${CMAKE_CURRENT_LIST_DIR}/parameterdefinition.cpp
    ${CMAKE_CURRENT_LIST_DIR}/parameterinstance.h
    ${CMAKE_CURRENT_LIST_DIR}/parametertext.h
    ${CMAKE_CURRENT_LIST_DIR}/simulateddrive.h
    ${CMAKE_CURRENT_LIST_DIR}/simulateddrive.cpp
    ${CMAKE_CURRENT_LIST_DIR}/simulateddriveproject.cpp
    ${CMAKE_CURRENT_LIST_DIR}/system.h
    ${CMAKE_CURRENT_LIST_DIR}/system.cpp
)
