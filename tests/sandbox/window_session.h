#pragma once

#include "sandbox/app/main_window.h"
#include "sandbox/keys/map_panel.h"
#include "support/ui_driver.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

#include <gtest/gtest.h>

/// A person without settings, before and after: to be made before the window that reads them. The settings
/// and the data are this program's own, whatever other tests run meanwhile.
class CFreshSettings {
public:
    CFreshSettings() {
        static const QTemporaryDir folder;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        QSettings().clear();
        qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
    }
    ~CFreshSettings() { QSettings().clear(); }
    CFreshSettings(const CFreshSettings&) = delete;
    CFreshSettings& operator=(const CFreshSettings&) = delete;
};

/// Wait for something that the window does when the application falls idle.
inline bool becomesTrue(const std::function<bool()>& condition) {
    QTimer pulse; // waiting for events ends also when none comes
    pulse.start(10);
    return ui::waitUntil([&] {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        return condition();
    });
}

/// Show the window on its sample, active, and begin a session: its map editor stands beside the view.
inline void beginOnSample(CMainWindow& window, QSize size) {
    window.resize(size);
    window.move(0, 0);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(ui::waitUntilActive(&window));
    ASSERT_EQ(window.openMap(QString(VESK_SAMPLES) + "/jacksboro"), "");
    window.startWork();
    ASSERT_TRUE(becomesTrue([&window] {
        const int viewEnds = window.view().mapToGlobal(QPoint(window.view().width(), 0)).x();
        return CMapPanel::isOpen() && viewEnds <= CMapPanel::window()->x();
    }));
}
