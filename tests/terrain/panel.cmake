vesk_test(test_map_editor_panel
    SOURCES panel_fixture.cpp panel_commands_test.cpp panel_layout_test.cpp panel_hostile_map_test.cpp panel_lifetime_test.cpp
            panel_textures_test.cpp
    LIBRARIES vesk_host vesk_ui_test_support)
