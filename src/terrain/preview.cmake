target_sources(vesk_terrain PRIVATE texture_preview.cpp)
