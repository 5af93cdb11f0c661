add_executable(veskplay ${CMAKE_CURRENT_LIST_DIR}/veskplay.cpp)
target_link_libraries(veskplay PRIVATE vesk_sound qxmemory vesk_headless)
vesk_warnings(veskplay)
