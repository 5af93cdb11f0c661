add_executable(bench_texture_preview texture_preview_bench.cpp)
vesk_warnings(bench_texture_preview)
target_include_directories(bench_texture_preview PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_texture_preview PRIVATE vesk_terrain qxmemory Qt6::Gui benchmark::benchmark)
