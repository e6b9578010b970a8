add_executable(editbenchmark ${CMAKE_CURRENT_LIST_DIR}/editbenchmark.cpp)
target_link_libraries(editbenchmark PRIVATE MxCamDesigner benchmark::benchmark)
