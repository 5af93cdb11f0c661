add_executable(bench_journal journal_bench.cpp ${CMAKE_SOURCE_DIR}/sandbox/journal/map_journal.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/journal/map_records.cpp ${CMAKE_SOURCE_DIR}/sandbox/journal/film_copy.cpp
    ${CMAKE_SOURCE_DIR}/sandbox/film/film.cpp ${CMAKE_SOURCE_DIR}/sandbox/film/film_record.cpp)
vesk_warnings(bench_journal)
target_include_directories(bench_journal PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(bench_journal PRIVATE vesk_host qxmemory Qt6::Widgets)
