#include "support/window_guard.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <memory>

// Windows are made offscreen, where every machine draws them alike, unless the caller names a platform.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // GoogleTest owns its listeners.
    testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<CWindowGuard>().release());
    return RUN_ALL_TESTS();
}
