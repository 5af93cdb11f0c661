find_package(PkgConfig REQUIRED)
pkg_check_modules(BENCH_SNDFILE REQUIRED IMPORTED_TARGET sndfile)
pkg_check_modules(BENCH_SAMPLERATE REQUIRED IMPORTED_TARGET samplerate)

add_executable(bench_sound ${CMAKE_CURRENT_LIST_DIR}/sound_bench.cpp)
vesk_warnings(bench_sound)
target_include_directories(bench_sound PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
target_link_libraries(bench_sound PRIVATE vesk_sound qxmemory vesk_headless PkgConfig::BENCH_SNDFILE PkgConfig::BENCH_SAMPLERATE)
