add_executable(importbenchmark ${CMAKE_CURRENT_LIST_DIR}/importbenchmark.cpp)
target_link_libraries(importbenchmark PRIVATE MxCamDesigner benchmark::benchmark)
