vesk_test(test_panel_surfaces
    SOURCES ../support/recording_dialog.cpp surface_fixture.cpp surface_preview_picture_test.cpp surface_swatch_test.cpp
            surface_texture_list_test.cpp
    LIBRARIES vesk_controls qxmemory vesk_ui_test_support)
