find_package(Qt6 REQUIRED COMPONENTS Gui Widgets Test)

# A longer session by hand: VESK_EVENTS=100000 VESK_EVENTS_SEED=7 bin/test_ui_events
vesk_test(test_ui_events
    SOURCES ui_events/event_gestures.cpp ui_events/event_hand.cpp ui_events/event_player.cpp ui_events/event_session.cpp ui_events/event_stage.cpp
            ui_events/movie_stage.cpp ui_events/panel_invariants.cpp
            ui_events/ui_events_test.cpp
    LIBRARIES vesk_host vesk_ui_test_support
    TIMEOUT 900)
