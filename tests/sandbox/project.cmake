vesk_test(sandbox_project_test
    SOURCES project_test.cpp
    LIBRARIES vesksandbox_app
    ENVIRONMENT QT_QPA_PLATFORM=offscreen)
