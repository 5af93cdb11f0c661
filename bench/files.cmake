add_executable(bench_files files_bench.cpp)
vesk_warnings(bench_files)
target_include_directories(bench_files PRIVATE ${CMAKE_SOURCE_DIR})
target_link_libraries(bench_files PRIVATE vesksandbox_app)
