# Heightmap pictures, with libpng behind the checks of their header. Needs no window system.
find_package(PNG REQUIRED)
add_executable(fuzz_heightmap heightmap_fuzz.cpp ${CMAKE_SOURCE_DIR}/sandbox/core/heightmap_png.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/core/long_work.cpp ${CMAKE_SOURCE_DIR}/sandbox/core/png_picture.cpp)
vesk_warnings(fuzz_heightmap)
target_include_directories(fuzz_heightmap PRIVATE ${CMAKE_SOURCE_DIR})
target_link_options(fuzz_heightmap PRIVATE -fsanitize=fuzzer)
target_link_libraries(fuzz_heightmap PRIVATE qx_headers PNG::PNG)
