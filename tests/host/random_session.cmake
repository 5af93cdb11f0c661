vesk_test(random_session_test
    SOURCES random_session_test.cpp random_session.cpp random_session_reference.cpp
    LIBRARIES vesk_terrain qxmemory
    TIMEOUT 300
)
