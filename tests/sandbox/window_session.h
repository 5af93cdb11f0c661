#pragma once

#include "support/ui_driver.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

/// A person without settings, before and after: to be made before the window that reads them. The settings
/// are this program's own, whatever other tests run meanwhile.
class CFreshSettings {
public:
    CFreshSettings() {
        static const QTemporaryDir folder;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        QSettings().clear();
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
