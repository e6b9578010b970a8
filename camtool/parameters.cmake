target_sources(camtool PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/drivesession.h
    ${CMAKE_CURRENT_LIST_DIR}/drivesession.cpp
    ${CMAKE_CURRENT_LIST_DIR}/driveverbs.cpp
)
