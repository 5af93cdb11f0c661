add_executable(bench_movie movie_bench.cpp)
vesk_warnings(bench_movie)
target_include_directories(bench_movie PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_movie PRIVATE vesk_movie qxmemory Qt6::Gui Qt6::Widgets)

add_executable(bench_movie_panel movie_panel_bench.cpp)
vesk_warnings(bench_movie_panel)
target_include_directories(bench_movie_panel PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_movie_panel PRIVATE vesk_host qxmemory Qt6::Widgets)
