# The modal dialogs of the map editor.
target_sources(vesk_terrain PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/terrain_type_dlg.cpp)
