# Films, from the text in the project file to the movie in memory and back.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core)
add_executable(fuzz_film film_fuzz.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/film/film.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/film/film_record.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/film_json.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/json_reader.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/project/json_values.cpp)
vesk_warnings(fuzz_film)
target_include_directories(fuzz_film PRIVATE ${CMAKE_SOURCE_DIR})
target_link_libraries(fuzz_film PRIVATE qxmemory Qt6::Core)
target_link_options(fuzz_film PRIVATE -fsanitize=fuzzer)
