add_executable(curvesbenchmark ${CMAKE_CURRENT_LIST_DIR}/curvesbenchmark.cpp)
target_link_libraries(curvesbenchmark PRIVATE MxCamDesigner benchmark::benchmark)
