#pragma once

#include <QPointer>
#include <QWidget>

namespace qtbackend {

/// Handlers may end windows whose events are still on their way through Qt. What ends inside a scope is
/// deleted from the event loop after the outermost scope, and never inside another one; outside of any it is
/// deleted at once.
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
