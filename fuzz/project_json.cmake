find_package(Qt6 6.4 REQUIRED COMPONENTS Core)
add_executable(fuzz_project_json project_json_fuzz.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/film_json.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/json_reader.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/json_values.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/project_json.cpp)
vesk_warnings(fuzz_project_json)
target_include_directories(fuzz_project_json PRIVATE ${CMAKE_SOURCE_DIR})
target_link_libraries(fuzz_project_json PRIVATE qxmemory Qt6::Core)
target_link_options(fuzz_project_json PRIVATE -fsanitize=fuzzer)
set_target_properties(fuzz_project_json PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
