#include "platform/qt/window_registry.h"

#include "platform/qt/dispatch_scope.h"
#include "platform/qt/foreign_window.h"

#include <QCoreApplication>

namespace qtbackend {

namespace {

constexpr std::uintptr_t CONTROL_HANDLE_BIT = std::uintptr_t{1} << 62U;

/// The native id of a window of ours. Asking Qt for it makes every widget of the window's parent native too,
/// which the host's 3D view would not survive, unless the application is told not to for the moment.
std::uintptr_t nativeIdOf(const QWidget& window) {
    const bool before = QCoreApplication::testAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings, true);
    const std::uintptr_t id = window.winId();
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings, before);
    return id;
}

} // namespace

CWindowRegistry& CWindowRegistry::instance() {
    static auto& registry = *new CWindowRegistry;
    return registry;
}

void CWindowRegistry::enter(std::unique_ptr<CWindow> window) {
    QWidget* const widget = window->widget();
    if (window->handle() == nullptr) {
        const bool topLevel = widget != nullptr && widget->isWindow();
        const std::uintptr_t number = topLevel ? nativeIdOf(*widget) : CONTROL_HANDLE_BIT | ++m_lastChild;
        window->setHandle(reinterpret_cast<HWND>(number));
    }
    if (widget != nullptr) {
        m_byWidget[window->widgetKey()] = window.get();
    }
    const HWND handle = window->handle();
    m_windows[handle] = std::move(window);
}

CWindow* CWindowRegistry::find(HWND handle) const {
    const auto found = m_windows.find(handle);
    return found != m_windows.end() ? found->second.get() : nullptr;
}

CWindow* CWindowRegistry::find(const QWidget* widget) const {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const auto found = m_byWidget.find(widget);
        if (found != m_byWidget.end()) {
            return found->second;
        }
        if (widget->isWindow()) {
            break;
        }
    }
    return nullptr;
}

CWindow* CWindowRegistry::findOrAdopt(HWND handle) {
    if (handle == nullptr || (reinterpret_cast<std::uintptr_t>(handle) & CONTROL_HANDLE_BIT) != 0) {
        return find(handle);
    }
    CWindow* const known = find(handle);
    if (known != nullptr) {
        return known;
    }
    CForeignWindow& adopted = add(std::make_unique<CForeignWindow>(handle));
    if (adopted.widget() != nullptr) {
        // Native ids are given again: the host's next window must not meet this stand-in.
        QObject::connect(adopted.widget(), &QObject::destroyed, &adopted,
                         [this, &adopted] { retire(adopted); });
    }
    return &adopted;
}

std::vector<HWND> CWindowRegistry::topLevels() const {
    std::vector<HWND> found;
    for (const auto& [handle, window] : m_windows) {
        if (!window->isForeign() && window->widget() != nullptr && window->widget()->isWindow()) {
            found.push_back(handle);
        }
    }
    return found;
}

std::vector<HWND> CWindowRegistry::ownedBy(const CWindow& owner) const {
    std::vector<HWND> owned;
    if (owner.widget() != nullptr && !owner.widget()->isWindow() && !owner.isForeign()) {
        return owned; // a control
    }
    for (const auto& [handle, window] : m_windows) {
        if (window->parentWindow() == &owner && window->widget() != nullptr && window->widget()->isWindow()) {
            owned.push_back(handle);
        }
    }
    return owned;
}

void CWindowRegistry::retire(CWindow& window) {
    const auto found = m_windows.find(window.handle());
    if (found == m_windows.end()) {
        return;
    }
    m_byWidget.erase(window.widgetKey());
    for (HWND owned : ownedBy(window)) {
        find(owned)->forgetParent(); // a host's view is gone; its main window may stand
    }
    if (window.parentWindow() != nullptr) {
        std::erase(window.parentWindow()->children(), &window);
        window.forgetParent();
    }
    deleteWhenIdle(found->second.release());
    m_windows.erase(found);
}

} // namespace qtbackend
