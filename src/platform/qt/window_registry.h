#pragma once

#include "platform/qt/window.h"

#include <unordered_map>

namespace qtbackend {

/// All windows by handle and by widget. A top-level window's handle is its native id; a control's handle is a
/// number that no native id has, as most controls have no native window of their own. One instance, never
/// destroyed.
class CWindowRegistry {
public:
    static CWindowRegistry& instance();

    /// Takes over a window and gives it its handle.
    template <class Kind> Kind& add(std::unique_ptr<Kind> window) {
        Kind& added = *window;
        enter(std::move(window));
        return added;
    }

    CWindow* find(HWND handle) const;
    /// The window that the widget, or the widget it is a part of, shows.
    CWindow* find(const QWidget* widget) const;
    /// The window behind a handle that may be a host's: a stand-in is made for one not seen before.
    CWindow* findOrAdopt(HWND handle);
    /// The windows of ours that stand alone, in no order.
    std::vector<HWND> topLevels() const;
    /// Every dialog owned by the window.
    std::vector<HWND> ownedBy(const CWindow& owner) const;

    /// Forgets the window; the object is deleted when no message handler runs any more.
    void retire(CWindow& window);

private:
    void enter(std::unique_ptr<CWindow> window);

    std::unordered_map<HWND, std::unique_ptr<CWindow>> m_windows;
    std::unordered_map<const QObject*, CWindow*> m_byWidget;
    std::uintptr_t m_lastChild = 0;
};

/// Ends the dialogs that the window owns, tells the window and its controls of their end and forgets them.
/// The widget is left to the caller.
void endWindow(HWND window);

} // namespace qtbackend
