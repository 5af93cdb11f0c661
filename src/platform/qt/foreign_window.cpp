#include "platform/qt/foreign_window.h"

#include <QGuiApplication>

namespace qtbackend {

namespace {

QWidget* widgetOf(HWND handle) {
    return QWidget::find(static_cast<WId>(reinterpret_cast<std::uintptr_t>(handle)));
}

/// Of Qt's window systems on this platform only X11 lets a process see windows of others.
bool seesForeignWindows() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

} // namespace

CForeignWindow::CForeignWindow(HWND handle) : CWindow(widgetOf(handle), nullptr, {}) {
    setHandle(handle);
}

QWindow* CForeignWindow::native() const {
    if (m_pNative == nullptr && widget() == nullptr && seesForeignWindows()) {
        const auto id = reinterpret_cast<std::uintptr_t>(handle());
        m_pNative.reset(QWindow::fromWinId(static_cast<WId>(id)));
    }
    return m_pNative.get();
}

void CForeignWindow::adopt(QWidget& dialog) {
    if (native() != nullptr && dialog.windowHandle() != nullptr) {
        dialog.windowHandle()->setTransientParent(native());
    }
}

QRect CForeignWindow::screenGeometry() const {
    return native() != nullptr ? native()->geometry() : CWindow::screenGeometry();
}

} // namespace qtbackend
