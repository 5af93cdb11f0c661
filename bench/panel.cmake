add_executable(bench_panel_opening panel_opening_bench.cpp)
vesk_warnings(bench_panel_opening)
target_include_directories(bench_panel_opening PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_panel_opening PRIVATE vesk_host qxmemory Qt6::Widgets)
