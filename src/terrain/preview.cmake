target_sources(vesk_terrain PRIVATE tenth_step.cpp texture_preview.cpp)
target_link_libraries(vesk_terrain PUBLIC qxmemory)
