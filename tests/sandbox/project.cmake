vesk_test(sandbox_project_test
    SOURCES film_record_test.cpp project_samples.cpp project_test.cpp save_faults_test.cpp
    LIBRARIES vesksandbox_app
    ENVIRONMENT QT_QPA_PLATFORM=offscreen)
target_compile_definitions(sandbox_project_test PRIVATE VESK_SAMPLES="${CMAKE_SOURCE_DIR}/samples")

# The menus, the questions and the dialogs, on the real window: it draws with OpenGL, which needs a display.
add_executable(sandbox_window_test ${CMAKE_SOURCE_DIR}/sandbox/hands/hands.cpp film_window_test.cpp keys_test.cpp
    edit_menu_test.cpp main_window_test.cpp window_memory_test.cpp ${CMAKE_SOURCE_DIR}/sandbox/shaders.qrc)
set_target_properties(sandbox_window_test PROPERTIES AUTORCC ON)
target_include_directories(sandbox_window_test PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(sandbox_window_test PRIVATE VESK_SAMPLES="${CMAKE_SOURCE_DIR}/samples")
target_link_libraries(sandbox_window_test PRIVATE vesksandbox_app vesk_ui_test_support Qt6::Test)
vesk_warnings(sandbox_window_test)
add_test(NAME sandbox_window_test
    COMMAND ${VESK_XVFB_RUN} -a -s "-screen 0 1280x800x24" $<TARGET_FILE:sandbox_window_test> --gtest_brief=1)
# Where a panel comes to stand depends on the frame that a window manager gives it.
add_test(NAME sandbox_panel_place
    COMMAND ${VESK_XVFB_RUN} -a -s "-screen 0 1280x800x24" sh -c
            "openbox & exec $<TARGET_FILE:sandbox_window_test> --gtest_brief=1 --gtest_filter=PanelPlace.*")
set_tests_properties(sandbox_window_test sandbox_panel_place PROPERTIES TIMEOUT 600 ENVIRONMENT
    "QT_QPA_PLATFORM=xcb;ASAN_OPTIONS=detect_leaks=0;FONTCONFIG_FILE=${CMAKE_SOURCE_DIR}/tests/support/fonts.conf")

# Films as files: drawn with OpenGL, into memory and in the view that they must equal.
add_executable(sandbox_export_test film_export_test.cpp ${CMAKE_SOURCE_DIR}/sandbox/shaders.qrc)
set_target_properties(sandbox_export_test PROPERTIES AUTORCC ON)
target_include_directories(sandbox_export_test PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(sandbox_export_test PRIVATE VESK_SAMPLES="${CMAKE_SOURCE_DIR}/samples")
target_link_libraries(sandbox_export_test PRIVATE vesksandbox_app vesk_ui_test_support Qt6::Test)
vesk_warnings(sandbox_export_test)
add_test(NAME sandbox_export_test
    COMMAND ${VESK_XVFB_RUN} -a -s "-screen 0 1280x800x24" $<TARGET_FILE:sandbox_export_test> --gtest_brief=1)
set_tests_properties(sandbox_export_test PROPERTIES TIMEOUT 600 ENVIRONMENT
    "QT_QPA_PLATFORM=xcb;ASAN_OPTIONS=detect_leaks=0;FONTCONFIG_FILE=${CMAKE_SOURCE_DIR}/tests/support/fonts.conf")
