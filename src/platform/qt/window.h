#pragma once

#include "platform/windows/control_messages.h"
#include "platform/windows/functions.h"
#include "platform/windows/styles.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <string>
#include <utility>
#include <vector>

class CScrollBar;
class CWnd;

namespace qtbackend {

/// What every kind of window is made from.
struct WindowTraits {
    int id = 0;
    DWORD style = 0;
    std::string className;
};

/// One window of the system and the Qt widget that shows it: answers the messages of its kind, and turns the
/// widget's events into messages. The registry owns it from its creation to the window's end; the widget
/// belongs to its parent widget, or for a top-level window to this object.
class CWindow : public QObject {
public:
    CWindow(QWidget* widget, CWindow* parent, WindowTraits traits);
    ~CWindow() override;

    HWND handle() const { return m_handle; }
    void setHandle(HWND handle) { m_handle = handle; }
    /// Null once Qt has deleted the widget.
    QWidget* widget() const { return m_pWidget; }
    /// Names the widget even when Qt has deleted it.
    const QObject* widgetKey() const { return m_pWidgetKey; }
    /// The parent of a control, the owner of a dialog, or null.
    CWindow* parentWindow() const { return m_pParent; }
    void forgetParent() { m_pParent = nullptr; }
    int id() const { return m_traits.id; }
    DWORD style() const { return m_traits.style; }
    const std::string& className() const { return m_traits.className; }
    /// Controls in the order of their creation.
    std::vector<CWindow*>& children() { return m_children; }
    CWindow* child(int id) const;

    CWnd* object() const { return m_pObject; }
    void setObject(CWnd* object);
    /// A stand-in object of the control's class for a window that has none.
    CWnd* standIn();
    CScrollBar* scrollBarStandIn();

    bool isEnding() const { return m_bEnding; }
    /// Nothing that happens to the widgets of the window and its controls is reported to handlers any more.
    void markEnding();
    /// Whether somebody else made the window.
    virtual bool isForeign() const { return false; }

    /// Called once the window is among its parent's controls and has its place.
    virtual void onCreated() {}
    /// The default processing of a message.
    virtual LRESULT process(UINT message, WPARAM wParam, LPARAM lParam);
    virtual QString text() const { return {}; }
    virtual void setText(const QString&) {}
    /// Whether the mouse is worth messages: to its object, or to the window's own kind.
    virtual bool hearsMouse() const { return m_pObject != nullptr; }
    /// Whether an unhandled press keeps the mouse until its release, as buttons do.
    virtual bool capturesMouse() const { return true; }
    /// Sets position and size in the parent's pixels, or on the screen.
    virtual void setGeometry(const QRect& rect);
    virtual QRect screenGeometry() const;
    /// Where the window's own picture stands in the widget.
    virtual QRect clientRect() const;

    /// Sends the window WM_TIMER with this id at each interval, until it is stopped or the window ends.
    void runTimer(UINT_PTR id, UINT milliseconds);
    bool stopTimer(UINT_PTR id);

    /// Tells the parent of something the user did.
    void notify(int code);
    LRESULT notify(NMHDR& header, UINT code);
    /// Tells the parent of a scroll step.
    void notifyScroll(Qt::Orientation orientation, int code, int position);

protected:
    void timerEvent(QTimerEvent* event) override;
    virtual LRESULT dialogCode() const { return 0; }
    virtual std::unique_ptr<CWnd> makeStandIn() const;
    /// Also hears the events of a part of the widget.
    void watch(QWidget* part) { part->installEventFilter(this); }

private:
    HWND m_handle = nullptr;
    QPointer<QWidget> m_pWidget;
    const QObject* m_pWidgetKey;
    CWindow* m_pParent;
    WindowTraits m_traits;
    std::vector<CWindow*> m_children;
    std::vector<std::pair<UINT_PTR, int>> m_timers; ///< by our id, and Qt's number
    CWnd* m_pObject = nullptr;
    std::unique_ptr<CWnd> m_pStandIn;
    std::unique_ptr<CScrollBar> m_pScrollBarStandIn;
    bool m_bEnding = false;
};

} // namespace qtbackend
