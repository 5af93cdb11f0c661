vesk_test(test_texture_preview SOURCES texture_preview_test.cpp LIBRARIES vesk_terrain qxmemory)
# A program of its own: it has an engine's colour functions of its own.
vesk_test(test_other_engine SOURCES other_engine_test.cpp LIBRARIES vesk_terrain qxmemory)
