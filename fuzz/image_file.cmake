add_executable(fuzz_image_file ${CMAKE_CURRENT_LIST_DIR}/image_file.cpp)
target_link_options(fuzz_image_file PRIVATE -fsanitize=fuzzer)
target_link_libraries(fuzz_image_file PRIVATE qxmemory)
vesk_warnings(fuzz_image_file)
