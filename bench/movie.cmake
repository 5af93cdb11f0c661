add_executable(bench_movie movie_bench.cpp)
vesk_warnings(bench_movie)
target_include_directories(bench_movie PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_movie PRIVATE vesk_movie qxmemory Qt6::Gui Qt6::Widgets)
