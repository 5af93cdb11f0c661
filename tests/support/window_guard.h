#pragma once

#include <gtest/gtest.h>

/// Fails the test that caused a Qt warning nobody announced, or that left a window behind.
class CWindowGuard : public testing::EmptyTestEventListener {
public:
    CWindowGuard();

    /// The running test is about to cause a warning that contains the text.
    static void announceWarning(const char* text);

    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestEnd(const testing::TestInfo& test) override;
};
