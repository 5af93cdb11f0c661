#pragma once

#include "controls/offscreen_picture.h"
#include "movie/timeline_drag.h"
#include "movie/timeline_layout.h"
#include "platform/framework.h"

#include <functional>
#include <string>

class qxCMovie;

/// Tells the parent of a timeline that the mouse has done something to the movie or to the view: wParam 0,
/// lParam the timeline's control id.
inline constexpr UINT UM_TIMELINECHANGED = 2034;

/// The frames of a movie side by side, to be selected and moved with the mouse. Belongs to its panel. The
/// wheel scrolls, with Ctrl it zooms; while it has the keyboard its keys press the panel's play buttons.
class CTimelineCtrl : public CWnd {
public:
    /// Make the window, which keeps its size.
    bool create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    /// Show this movie, which stays the host's; null for none: the mouse then does nothing. Draws nothing.
    void setMovie(qxCMovie* movie) { m_pMovie = movie; }
    /// Run before a drag that moves or duplicates frames takes effect.
    void setBeforeDrop(std::function<void()> beforeDrop) { m_beforeDrop = std::move(beforeDrop); }

    /// Held to a power of two from 1 to 64. Redraws, as do the next two.
    void setFrameWidth(int pixels);
    int getFrameWidth() const { return m_view.frameWidth; }
    /// May lie outside the movie.
    void setFirstFrame(int frame);
    int getFirstFrame() const { return m_view.firstFrame; }
    /// Scroll as little as brings the frame into view.
    void ensureVisible(int frame);
    int getClientWidth() const { return m_view.clientWidth; }

    /// Show the movie as it is now; while it plays, four times a second at most. A picture that shows it
    /// already is not drawn again.
    void redraw();

protected:
    BOOL PreTranslateMessage(MSG* pMsg) override;
    afx_msg void OnPaint();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnTimer(UINT_PTR nIDEvent);

    DECLARE_MESSAGE_MAP()

private:
    bool hasMovieAndParent() const { return m_pMovie != nullptr && GetParent() != nullptr; }
    void dragTo(int x);
    bool endDrag();
    void cancelDrag();
    bool canScrollTowards(int x) const;
    void scrollOnWhile(bool outside);
    void showTip(int x);
    void redrawAndNotify();

    qxCMovie* m_pMovie = nullptr;
    TimelineView m_view;
    CTimelineDrag m_drag;
    std::function<void()> m_beforeDrop;
    float m_fLastRedraw = 0.0F; ///< animator clock, seconds
    COffscreenPicture m_picture;
    std::vector<TimelineColumn> m_drawn; ///< what the picture shows
    TimelineView m_drawnView;            ///< how it shows it
    std::vector<TimelineColumn> m_read;  ///< kept from call to call for its memory only
    CToolTipCtrl m_tip;
    std::string m_strTip;
    int m_nPointerX = 0; ///< where the drag is
    bool m_bScrollsOn = false;
    int m_nWheelRest = 0; ///< less than a notch
};
