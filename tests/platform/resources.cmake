vesk_test(platform_resources_test
    SOURCES resources_test.cpp dialog_layout_test.cpp
    LIBRARIES vesk_resources)
