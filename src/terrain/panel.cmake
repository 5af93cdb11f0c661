# The panel and the dialogs that it opens.
if(TARGET vesk_platform)
    target_sources(vesk_terrain PRIVATE
        map_editor_dlg.cpp
        map_editor_dlg_commands.cpp
        map_editor_dlg_init.cpp
        map_editor_dlg_textures.cpp)
    target_link_libraries(vesk_terrain PUBLIC vesk_controls vesk_platform vesk_resources vesk_module_state)
    include(dialogs.cmake)
endif()
