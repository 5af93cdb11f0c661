vesk_test(test_platform_resources
    SOURCES resources_test.cpp dialog_layout_test.cpp
    LIBRARIES vesk_resources)
