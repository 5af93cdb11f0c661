add_executable(veskplay veskplay.cpp)
target_link_libraries(veskplay PRIVATE vesk_sound qxmemory)
vesk_warnings(veskplay)
