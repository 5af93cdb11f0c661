#include "platform/qt/application.h"

#include "platform/qt/display_probe.h"
#include "platform/qt/host_surroundings.h"
#include "platform/qt/window_registry.h"
#include "platform/windows/back_end.h"

#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>

#include <utility>

namespace qtbackend {

namespace {

/// The application object that was made here; null while the host has one.
QPointer<QCoreApplication> g_pOwnApplication;

void makeApplication() {
    const CHostSurroundings surroundings;
    static QByteArray s_platform;
    s_platform = findUsablePlatform();
    if (s_platform.isEmpty()) {
        return;
    }
    static char s_name[] = "veskutil";
    static char s_option[] = "-platform";
    static char* s_arguments[] = {&s_name[0], &s_option[0], s_platform.data(), nullptr};
    static int s_count = 3;
    // Is its own registry, and the process's from here on.
    g_pOwnApplication = new QApplication(s_count, &s_arguments[0]);
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

bool g_bApplicationEnded = false;
bool g_bHearsTheEnd = false;

/// Called when an application object ends, as long as widgets can still go in order.
void onApplicationEnd() {
    g_bHearsTheEnd = false;
    g_bApplicationEnded = true;
    for (const HWND window : CWindowRegistry::instance().topLevels()) {
        ::DestroyWindow(window);
    }
}

bool hearTheEnd() {
    if (!std::exchange(g_bHearsTheEnd, true)) {
        qAddPostRoutine(&onApplicationEnd);
    }
    return true;
}

/// From the library's loading on: the host's application object may end before a window was ever asked for.
const bool HEARS_FROM_LOADING = hearTheEnd();

} // namespace

bool ensureApplication() {
    // What the host has ended is not begun again: the process may be on its way out.
    if (QCoreApplication::instance() == nullptr && !g_bApplicationEnded) {
        makeApplication();
    }
    return hearTheEnd() && qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

QFont dialogFont(const QString& face, int pointSize) {
    QFont font = QApplication::font();
    const bool logical = face.isEmpty() || face == QLatin1String("MS Sans Serif") ||
                         face.startsWith(QLatin1String("MS Shell Dlg"));
    if (!logical) {
        font.setFamily(face);
    }
    if (pointSize > 0) {
        font.setPointSize(pointSize);
    }
    return font;
}

} // namespace qtbackend

void ServeWindows() {
    static bool s_isServing = false;
    if (s_isServing || qtbackend::g_pOwnApplication == nullptr) {
        return;
    }
    const QScopedValueRollback<bool> serving(s_isServing, true);
    QCoreApplication::processEvents();
    // What was to be deleted later waits for a loop that is never entered.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
