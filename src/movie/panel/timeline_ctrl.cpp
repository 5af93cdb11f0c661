#include "movie/panel/timeline_ctrl.h"

#include "engine/qx_movie.h"
#include "module/visit.h"
#include "resources/resource_ids.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CTimelineCtrl, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
ON_WM_TIMER()
END_MESSAGE_MAP()

namespace {

constexpr float SECONDS_BETWEEN_PICTURES = 0.25F; // while the movie plays
constexpr UINT_PTR SCROLL_TIMER = 1;
constexpr UINT SCROLL_INTERVAL = 50; // milliseconds
constexpr int WHEEL_SHARE = 8;       // of what is shown goes by at a notch

struct KeyButton {
    UINT key;
    int button;
    int buttonWithShift;
};
constexpr KeyButton KEY_BUTTONS[] = {
    {VK_SPACE, IDC_PLAY, IDC_PLAY},
    {VK_OEM_COMMA, IDC_STEP_BACK, IDC_PREVIOUS_KEY},
    {VK_OEM_PERIOD, IDC_STEP_FORWARD, IDC_NEXT_KEY},
    {VK_HOME, IDC_GO_TO_START, IDC_GO_TO_START},
    {VK_END, IDC_GO_TO_END, IDC_GO_TO_END},
};

/// Keys that nobody means for the dialog here: Enter would press its default button, which is "Close", an
/// arrow would take the keyboard to some other control.
constexpr WPARAM KEYS_OF_THE_DIALOG[] = {VK_RETURN, VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN};

/// Give the window the keyboard, then the mouse. False, and nothing may be done with the window's object,
/// when the field that had the keyboard refused its text and has it back, or the panel was closed meanwhile.
bool takeInput(HWND window) {
    const HWND before = ::GetFocus();
    ::SetFocus(window);
    const bool isSibling = before != window && ::GetParent(before) == ::GetParent(window);
    // A panel that a message box stood over has no keyboard at all for a moment.
    if (!::IsWindow(window) || (isSibling && ::GetFocus() != window)) {
        return false;
    }
    ::SetCapture(window);
    return true;
}

} // namespace

bool CTimelineCtrl::create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    if (!CreateEx(WS_EX_CLIENTEDGE | WS_EX_STATICEDGE, AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW), "",
                  style, rect, parent, id)) {
        return false;
    }
    CRect client;
    GetClientRect(client);
    m_view.clientWidth = client.Width();
    m_view.clientHeight = client.Height();
    return m_tip.Create(parent) != FALSE && m_tip.AddTool(this, "") != FALSE;
}

void CTimelineCtrl::setFrameWidth(int pixels) {
    m_view.setFrameWidth(pixels);
    redraw();
}

void CTimelineCtrl::setFirstFrame(int frame) {
    m_view.firstFrame = frame;
    redraw();
}

void CTimelineCtrl::ensureVisible(int frame) {
    if (m_view.ensureVisible(frame)) {
        redraw();
    }
}

void CTimelineCtrl::redraw() {
    if (m_pMovie == nullptr || m_hWnd == nullptr) {
        return;
    }
    const float now = qxCAnimator::getTime();
    const float since = now - m_fLastRedraw;
    const bool isPlaying = (m_pMovie->flags & qxMovieStopped) == 0;
    if (isPlaying && since >= 0.0F && since < SECONDS_BETWEEN_PICTURES) {
        return;
    }
    m_fLastRedraw = now;
    readTimeline(m_read, m_view, *m_pMovie);
    if (m_read != m_drawn || m_view.frameWidth != m_drawnView.frameWidth) {
        m_drawn = m_read;
        m_drawnView = m_view;
        m_picture.outdate(*this);
    }
}

void CTimelineCtrl::OnPaint() {
    CPaintDC dc(this);
    m_picture.paint(dc, *this, [this](auto pixels, CSize) { drawTimeline(pixels, m_drawnView, m_drawn); });
}

/// The panel's answer may end the panel, and with the last visit this: nothing may follow.
void CTimelineCtrl::redrawAndNotify() {
    redraw();
    GetParent()->SendMessage(UM_TIMELINECHANGED, 0, GetDlgCtrlID());
}

void CTimelineCtrl::OnLButtonDown(UINT /*nFlags*/, CPoint point) {
    const CVisit visit;
    if (hasMovieAndParent() && takeInput(m_hWnd)) {
        m_drag.leftDown(*m_pMovie, m_view, point.x);
        redrawAndNotify();
    }
}

void CTimelineCtrl::OnRButtonDown(UINT nFlags, CPoint point) {
    const CVisit visit;
    if (hasMovieAndParent() && takeInput(m_hWnd)) {
        m_drag.rightDown(*m_pMovie, m_view, point.x, (nFlags & MK_CONTROL) != 0);
        redrawAndNotify();
    }
}

/// Let the mouse go. False when this did not have it: the press belonged to somebody else, or was cancelled.
bool CTimelineCtrl::endDrag() {
    scrollOnWhile(false);
    if (::GetCapture() != m_hWnd) {
        return false;
    }
    ::ReleaseCapture();
    return hasMovieAndParent();
}

void CTimelineCtrl::OnLButtonUp(UINT /*nFlags*/, CPoint point) {
    const CVisit visit;
    if (endDrag() && m_drag.leftUp(*m_pMovie, m_view, point.x)) {
        redrawAndNotify();
    }
}

void CTimelineCtrl::OnRButtonUp(UINT /*nFlags*/, CPoint point) {
    const CVisit visit;
    if (!endDrag()) {
        return;
    }
    if (m_beforeDrop) {
        m_beforeDrop();
    }
    if (m_drag.rightUp(*m_pMovie, m_view, point.x)) {
        redrawAndNotify();
    }
}

void CTimelineCtrl::OnMouseMove(UINT nFlags, CPoint point) {
    const CVisit visit;
    if (!hasMovieAndParent()) {
        return;
    }
    if (m_drag.mode() == CTimelineDrag::Mode::NONE) {
        showTip(point.x);
        return;
    }
    if ((nFlags & (MK_LBUTTON | MK_RBUTTON)) == 0) {
        cancelDrag(); // the release went to a window that came up meanwhile
        return;
    }
    m_nPointerX = point.x;
    scrollOnWhile(point.x < 0 || point.x >= m_view.clientWidth);
    dragTo(point.x);
}

void CTimelineCtrl::dragTo(int x) {
    if (m_drag.move(*m_pMovie, m_view, x)) {
        redrawAndNotify();
    }
}

void CTimelineCtrl::scrollOnWhile(bool outside) {
    if (outside == m_bScrollsOn) {
        return;
    }
    m_bScrollsOn = outside;
    if (outside) {
        SetTimer(SCROLL_TIMER, SCROLL_INTERVAL, nullptr);
    } else {
        KillTimer(SCROLL_TIMER);
    }
}

/// Whether there are frames of the movie beyond the edge that the pointer has passed.
bool CTimelineCtrl::canScrollTowards(int x) const {
    return x < 0 ? m_view.firstFrame > 0
                 : m_view.firstFrame < m_pMovie->getNumFrames() - m_view.wholeColumns();
}

void CTimelineCtrl::OnTimer(UINT_PTR /*nIDEvent*/) {
    const CVisit visit;
    if (!hasMovieAndParent() || m_drag.mode() == CTimelineDrag::Mode::NONE) {
        scrollOnWhile(false);
        return;
    }
    if (canScrollTowards(m_nPointerX)) {
        dragTo(m_nPointerX < 0 ? std::min(m_nPointerX, -m_view.frameWidth) : m_nPointerX);
    }
}

void CTimelineCtrl::showTip(int x) {
    std::string tip = timelineTip(x, m_view, *m_pMovie);
    if (tip != m_strTip) {
        m_strTip = std::move(tip);
        m_tip.UpdateTipText(m_strTip.c_str(), this);
    }
}

BOOL CTimelineCtrl::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt) {
    const CVisit visit;
    if (!hasMovieAndParent()) {
        return TRUE;
    }
    m_nWheelRest += zDelta;
    const int notches = m_nWheelRest / WHEEL_DELTA;
    m_nWheelRest -= notches * WHEEL_DELTA;
    ScreenToClient(&pt);
    bool changed = false;
    if ((nFlags & MK_CONTROL) != 0) {
        for (int i = 0; i < std::abs(notches); ++i) {
            changed |= m_view.zoomAbout(pt.x, notches > 0);
        }
    } else {
        const int frames = std::max(1, m_view.wholeColumns() / WHEEL_SHARE);
        changed = m_view.scrollBy(-notches * frames, m_pMovie->getNumFrames());
    }
    if (changed) {
        showTip(pt.x);
        redrawAndNotify();
    }
    return TRUE;
}

BOOL CTimelineCtrl::PreTranslateMessage(MSG* pMsg) {
    if (pMsg->message != WM_KEYDOWN) {
        return CWnd::PreTranslateMessage(pMsg);
    }
    if (std::ranges::find(KEYS_OF_THE_DIALOG, pMsg->wParam) != std::end(KEYS_OF_THE_DIALOG)) {
        return TRUE;
    }
    if (pMsg->wParam == VK_ESCAPE && m_drag.mode() != CTimelineDrag::Mode::NONE && hasMovieAndParent()) {
        cancelDrag();
        return TRUE;
    }
    return CWnd::PreTranslateMessage(pMsg);
}

void CTimelineCtrl::cancelDrag() {
    const CVisit visit;
    scrollOnWhile(false);
    ::ReleaseCapture();
    m_drag.cancel(*m_pMovie);
    redrawAndNotify();
}

void CTimelineCtrl::OnKeyDown(UINT nChar, UINT /*nRepCnt*/, UINT nFlags) {
    const auto* const found = std::ranges::find(KEY_BUTTONS, nChar, &KeyButton::key);
    const bool isHeldSpace = nChar == VK_SPACE && (nFlags & KF_REPEAT) != 0;
    if (found == std::end(KEY_BUTTONS) || isHeldSpace) {
        return;
    }
    const int button = ::GetKeyState(VK_SHIFT) < 0 ? found->buttonWithShift : found->button;
    ::SendMessage(::GetDlgItem(::GetParent(m_hWnd), button), BM_CLICK, 0, 0);
}
