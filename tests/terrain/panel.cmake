find_package(Qt6 REQUIRED COMPONENTS Widgets Test)

vesk_test(test_map_editor_panel
    SOURCES panel_fixture.cpp panel_commands_test.cpp panel_layout_test.cpp panel_lifetime_test.cpp
            panel_textures_test.cpp
    LIBRARIES vesk_host Qt6::Widgets Qt6::Test
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
