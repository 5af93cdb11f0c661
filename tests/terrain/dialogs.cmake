vesk_test(test_terrain_dialogs
    SOURCES terrain_type_dlg_test.cpp
    LIBRARIES vesk_terrain qxmemory vesk_ui_test_support)
