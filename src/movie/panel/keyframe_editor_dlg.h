#pragma once

#include "controls/hosted_editor_dlg.h"
#include "engine/qx_movie.h"
#include "movie/camera_capture.h"
#include "movie/panel/keyframe_group.h"

#include <functional>

/// The half of the movie editor panel that changes the current frame: the properties of the keyframe group
/// and the host's camera moves. Changes go into the history of movies.
class CKeyframeEditorDlg : public CHostedEditorDlg {
public:
    /// Edit this movie, which the host owns and keeps alive until the panel is closed. Before the window is
    /// made.
    void bind(qxCMovie* movie);
    /// The host has moved this camera, or ended the move.
    void cameraAltered(qxCCamera* camera, bool finished);

protected:
    /// What a panel that shows itself anew makes of its Undo button.
    enum class UndoButton { DISABLED, AS_HISTORY };

    using CHostedEditorDlg::CHostedEditorDlg;

    void DoDataExchange(CDataExchange* pDX) override;
    void letGo() override;

    /// Bring every control in step with the movie.
    virtual void refresh(qxCMovie& movie, UndoButton undoButton) = 0;
    void refresh(qxCMovie& movie) { refresh(movie, UndoButton::DISABLED); }

    /// Copy the controls into the members. A refused value has been told of, and its member stays. False when
    /// the editor was closed, which may happen under the message box of a refusal.
    bool readControls();
    /// Run `task` on the movie, unless the panel is closed. It and the movie outlive the task, whatever the
    /// engine's calls bring about; nothing of the panel may be touched afterwards.
    void work(const std::function<void(qxCMovie&)>& task);
    /// Record what an unfinished camera move has changed, before frames move or change by another hand.
    void settleCapture();
    /// Show how full the history is, and let Undo be pressed when it holds a record.
    void showUndo();
    void tweenAndRefresh(qxCMovie& movie);
    /// Null once the panel is closed.
    qxCMovie* movie() const { return m_pMovie; }
    CKeyframeGroup& keyframeGroup() { return m_keyframe; }

    afx_msg LRESULT onColourChanged(WPARAM wParam, LPARAM controlId);
    afx_msg void onNumberLeft(UINT controlId);
    afx_msg void onTargetNameLeft();
    afx_msg void onAnimLeft();
    afx_msg void onSpin(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void onCamera();
    afx_msg void onFrameMode(UINT controlId);
    afx_msg void onTarget();
    afx_msg void onEase(UINT controlId);

    DECLARE_MESSAGE_MAP()

private:
    using Edit = std::function<void(qxCMovieFrame&)>;
    bool change(qxCMovie& movie, Recording recording, const Edit& edit);
    bool writeTyped(qxCMovie& movie, int controlId);

    qxCMovie* m_pMovie = nullptr;
    CKeyframeGroup m_keyframe;
    CCameraCapture m_capture;
    CProgressCtrl m_undoFill;
};
