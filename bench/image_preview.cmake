add_executable(bench_image_preview image_preview_bench.cpp)
vesk_warnings(bench_image_preview)
target_include_directories(bench_image_preview PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_image_preview PRIVATE vesk_controls qxmemory Qt6::Gui benchmark::benchmark)
