#pragma once

#include "platform/qt/window.h"

#include <QEvent>

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
    /// Every dialog owned by the window.
    /// The windows of ours that stand alone, in no order.
    std::vector<HWND> topLevels() const;
    std::vector<HWND> ownedBy(const CWindow& owner) const;

    /// Forgets the window; the object is deleted when no message handler runs any more.
    void retire(CWindow& window);

private:
    void enter(std::unique_ptr<CWindow> window);

    std::unordered_map<HWND, std::unique_ptr<CWindow>> m_windows;
    std::unordered_map<const QObject*, CWindow*> m_byWidget;
    std::uintptr_t m_lastChild = 0;
};

/// Handlers may end windows whose events are still on their way through Qt. What ends inside a scope is
/// deleted from the event loop after the outermost scope; outside of any it is deleted at once.
class CDispatchScope {
public:
    CDispatchScope();
    ~CDispatchScope();
    CDispatchScope(const CDispatchScope&) = delete;
    CDispatchScope& operator=(const CDispatchScope&) = delete;

    static bool isActive();
};

/// Deletes the object now or after the outermost dispatch scope.
void deleteWhenIdle(QObject* object);

/// Ends the dialogs that the window owns, tells the window and its controls of their end and forgets them.
/// The widget is left to the caller.
void endWindow(HWND window);

/// The window the user works in: the active one, else the modal dialog that is open, as a dialog over it that
/// has just ended leaves no window active until the window system gives the activation back. Null for none.
QWidget* windowInUse();

/// Counts the modal dialogs run so far: a change tells that the user did other things meanwhile.
int modalRuns();
/// Marks a nested run of messages for a modal window. At its end the window that was active before is so
/// again: not every window system sees to that.
class CModalRun {
public:
    CModalRun();
    ~CModalRun();
    CModalRun(const CModalRun&) = delete;
    CModalRun& operator=(const CModalRun&) = delete;

private:
    CDispatchScope m_handlersStillRun;
    QPointer<QWidget> m_pFormerlyActive;
};

} // namespace qtbackend
