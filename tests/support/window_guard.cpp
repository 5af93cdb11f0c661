#include "support/window_guard.h"

#include <QApplication>
#include <QEvent>
#include <QStringList>
#include <QWidget>

namespace {

/// Said by the offscreen platform of every window with a fixed size; it tells nothing about the window.
constexpr const char* OFFSCREEN_REMARK = "This plugin does not support propagateSizeHints()";

QStringList g_announced;
QStringList g_unannounced;

void onMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg || text == QLatin1String(OFFSCREEN_REMARK)) {
        return;
    }
    for (const QString& announced : g_announced) {
        if (text.contains(announced)) {
            return;
        }
    }
    g_unannounced << text;
}

/// Deletes what was left for the event loop to delete.
void finishDeletions() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

CWindowGuard::CWindowGuard() {
    qInstallMessageHandler(&onMessage);
}

void CWindowGuard::announceWarning(const char* text) {
    g_announced << QString::fromUtf8(text);
}

void CWindowGuard::OnTestStart(const testing::TestInfo&) {
    g_announced.clear();
    g_unannounced.clear();
}

void CWindowGuard::OnTestEnd(const testing::TestInfo&) {
    finishDeletions();
    for (const QString& warning : g_unannounced) {
        ADD_FAILURE() << "Qt warned: " << warning.toStdString();
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            ADD_FAILURE() << "Window left open: " << window->objectName().toStdString() << " "
                          << window->windowTitle().toStdString();
            window->hide();
        }
    }
}
