# A longer session by hand: VESK_SESSION_OPS=1000000 VESK_SESSION_SEED=7 bin/test_random_session
vesk_test(test_random_session
    SOURCES random_session.cpp random_session_compare.cpp random_session_reference.cpp
            random_session_reference_tools.cpp random_session_test.cpp
    LIBRARIES vesk_terrain qxmemory vesk_test_support
    TIMEOUT 900)
