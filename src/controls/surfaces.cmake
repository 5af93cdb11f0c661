# Colour swatch, image preview, texture picker and the list that it opens.
target_sources(vesk_controls PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/colour_button.cpp
    ${CMAKE_CURRENT_LIST_DIR}/image_preview.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preview_picture.cpp
    ${CMAKE_CURRENT_LIST_DIR}/texture_list_dlg.cpp
    ${CMAKE_CURRENT_LIST_DIR}/texture_picker_button.cpp)
target_link_libraries(vesk_controls PUBLIC vesk_module_state)
