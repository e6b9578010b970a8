target_sources(camtool PRIVATE ${CMAKE_CURRENT_LIST_DIR}/sampleverb.cpp)
