#pragma once

#include "movie/panel/keyframe_editor_dlg.h"
#include "movie/panel/play_control.h"
#include "movie/panel/soundtrack_setup.h"
#include "movie/panel/timeline_ctrl.h"
#include "movie/panel/timeline_scroll.h"
#include "movie/soundtrack.h"

/// The movie editor panel: shows a movie and its current frame, changes it in place by the commands of its
/// controls, plays it, and takes the host's camera moves into it.
class CMovieEditorDlg : public CKeyframeEditorDlg {
public:
    /// `showClose` offers the panel's own "Close".
    explicit CMovieEditorDlg(bool showClose);
    ~CMovieEditorDlg() override;

    /// Before the panel is destroyed: what it plays is stopped, and no call of the engine's reaches it any
    /// more.
    void endPlayback();
    CTimelineCtrl& timeline() { return m_timeline; }

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void onUserCloses() override;
    void letGo() override;
    using CKeyframeEditorDlg::refresh;
    void refresh(qxCMovie& movie, UndoButton undoButton) override;

    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg LRESULT onTimelineChanged(WPARAM wParam, LPARAM controlId);
    afx_msg void onFrameCommand(UINT controlId);
    afx_msg void onUndo();
    afx_msg void onPlay();
    afx_msg void onPlayOption();
    afx_msg void onGoTo(UINT controlId);
    afx_msg void onKeySearch(UINT controlId);
    afx_msg void onZoom(UINT controlId);
    afx_msg void onCameraView();
    afx_msg void onViewOption(UINT controlId);
    afx_msg void onSetupSoundList();
    afx_msg void onCloseButton();

    DECLARE_MESSAGE_MAP()

private:
    static void onAnimatorMessage(qxAnimatorMessage message, std::uint32_t data);
    static void onMovieEvent(qxMovieEvent event, const char* text, int value);

    void createTimeline();
    void showAtOpening(qxCMovie& movie);
    void fitTimeline(const qxCMovie& movie);
    void goToFrame(qxCMovie& movie, int frame);
    void startPlayback(qxCMovie& movie);
    void stopPlayback(qxCMovie& movie);
    void movieEnded(qxCMovie& movie);

    const bool m_bShowClose;
    CTimelineCtrl m_timeline;
    CTimelineScroll m_timelineScroll;
    CPlayControl m_player;
    CSoundtrack m_soundtrack;
    CSoundtrackSetup m_soundtrackSetup;

    CTypedField<CString> m_strTime;
    int m_nCameraView = -1;
    int m_bPause = 0;
    int m_bLoop = 0;
    int m_bPath = 0;
    int m_bHeights = 0;
    int m_bNoFades = 0;
};
