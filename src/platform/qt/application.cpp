#include "platform/qt/application.h"

#include "platform/framework/win_app.h"

#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>

namespace qtbackend {

namespace {

/// The application object that was made here; null while the host has one.
QPointer<QCoreApplication> g_pOwnApplication;

} // namespace

bool ensureApplication() {
    if (QCoreApplication::instance() == nullptr) {
        static int count = 1;
        static char name[] = "veskutil";
        static char* arguments[] = {&name[0], nullptr};
        // Is its own registry, and the process's from here on.
        g_pOwnApplication = new QApplication(count, &arguments[0]);
        QGuiApplication::setQuitOnLastWindowClosed(false);
    }
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
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

void AfxServeWindows() {
    static bool s_isServing = false;
    if (s_isServing || qtbackend::g_pOwnApplication == nullptr) {
        return;
    }
    const QScopedValueRollback<bool> serving(s_isServing, true);
    QCoreApplication::processEvents();
    // What was to be deleted later waits for a loop that is never entered.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
