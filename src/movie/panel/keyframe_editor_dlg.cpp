#include "movie/panel/keyframe_editor_dlg.h"

#include "controls/history_display.h"
#include "controls/stepped_value.h"
#include "movie/keyframe_steps.h"
#include "resources/resource_ids.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CKeyframeEditorDlg, CHostedEditorDlg)
ON_MESSAGE(UM_COLOURCHANGED, &CKeyframeEditorDlg::onColourChanged)
ON_EN_KILLFOCUS(IDC_POSITION_X, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_POSITION_Y, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_POSITION_Z, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_ROTATION_X, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_ROTATION_Y, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_ROTATION_Z, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_FIELD_OF_VIEW, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_SHAKE, &CKeyframeEditorDlg::onNumberLeft)
ON_EN_KILLFOCUS(IDC_TARGET_NAME, &CKeyframeEditorDlg::onTargetNameLeft)
ON_EN_KILLFOCUS(IDC_ANIM, &CKeyframeEditorDlg::onAnimLeft)
ON_NOTIFY(UDN_DELTAPOS, IDC_POSITION_X_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_POSITION_Y_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_POSITION_Z_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_ROTATION_X_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_ROTATION_Y_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_ROTATION_Z_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_FIELD_OF_VIEW_SPIN, &CKeyframeEditorDlg::onSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_SHAKE_SPIN, &CKeyframeEditorDlg::onSpin)
ON_CBN_SELCHANGE(IDC_FRAME_CAMERA, &CKeyframeEditorDlg::onCamera)
ON_CBN_SELCHANGE(IDC_INTERPOLATION, &CKeyframeEditorDlg::onFrameMode)
ON_CBN_SELCHANGE(IDC_FADE, &CKeyframeEditorDlg::onFrameMode)
ON_BN_CLICKED(IDC_TARGET, &CKeyframeEditorDlg::onTarget)
ON_BN_CLICKED(IDC_EASE_IN_DOWN, &CKeyframeEditorDlg::onEase)
ON_BN_CLICKED(IDC_EASE_IN_UP, &CKeyframeEditorDlg::onEase)
ON_BN_CLICKED(IDC_EASE_OUT_DOWN, &CKeyframeEditorDlg::onEase)
ON_BN_CLICKED(IDC_EASE_OUT_UP, &CKeyframeEditorDlg::onEase)
END_MESSAGE_MAP()

void CKeyframeEditorDlg::bind(qxCMovie* movie) {
    m_pMovie = movie;
    g_movieUndo.openFor(movie);
}

void CKeyframeEditorDlg::letGo() {
    m_pMovie = nullptr;
}

void CKeyframeEditorDlg::DoDataExchange(CDataExchange* pDX) {
    CHostedEditorDlg::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_MOVIE_UNDO_FILL, m_undoFill);
    m_keyframe.exchange(pDX);
}

bool CKeyframeEditorDlg::readControls() {
    if (m_pMovie == nullptr || isEnding()) {
        return false;
    }
    m_keyframe.forgetTyped();
    UpdateData(TRUE); // a refused field shows its value again with what the handler shows at its end
    return m_pMovie != nullptr && !isEnding();
}

void CKeyframeEditorDlg::work(const std::function<void(qxCMovie&)>& task) {
    if (m_pMovie != nullptr && !isEnding()) {
        const CVisit visit;
        task(*m_pMovie);
    }
}

void CKeyframeEditorDlg::settleCapture() {
    m_capture.settle(*m_pMovie, g_movieUndo);
}

void CKeyframeEditorDlg::showUndo() {
    showHistory(*this, IDC_MOVIE_UNDO, m_undoFill, g_movieUndo);
}

void CKeyframeEditorDlg::tweenAndRefresh(qxCMovie& movie) {
    movie.updateTweening();
    refresh(movie);
}

/// False, and nothing happens, without a current frame.
bool CKeyframeEditorDlg::change(qxCMovie& movie, Recording recording, const Edit& edit) {
    settleCapture(); // or the change of the move would count as part of this one
    if (!editCurrentFrame(movie, g_movieUndo, recording, edit)) {
        return false;
    }
    if (recording == Recording::RECORDED) {
        showUndo();
    }
    return true;
}

void CKeyframeEditorDlg::cameraAltered(qxCCamera* camera, bool finished) {
    work([&](qxCMovie& movie) {
        if (!finished) {
            if (m_capture.moved(movie, camera)) {
                m_keyframe.outdate();
            }
        } else if (m_capture.finished(movie, g_movieUndo)) {
            showUndo();
            refresh(movie);
        }
    });
}

/// Write what was typed into an edit. False without a current frame.
bool CKeyframeEditorDlg::writeTyped(qxCMovie& movie, int controlId) {
    if (!m_keyframe.isTyped(controlId)) {
        return currentFrame(movie) != nullptr;
    }
    return change(movie, Recording::RECORDED,
                  [&](qxCMovieFrame& frame) { m_keyframe.write(controlId, frame); });
}

/// Neither tweens nor refreshes: the frames between follow with the next command that does.
void CKeyframeEditorDlg::onNumberLeft(UINT controlId) {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        if (writeTyped(movie, static_cast<int>(controlId))) {
            showUndo();
            UpdateData(FALSE);
        }
    });
}

void CKeyframeEditorDlg::onTargetNameLeft() {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        writeTyped(movie, IDC_TARGET_NAME);
        tweenAndRefresh(movie);
    });
}

void CKeyframeEditorDlg::onAnimLeft() {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        if (writeTyped(movie, IDC_ANIM)) {
            tweenAndRefresh(movie);
        }
    });
}

void CKeyframeEditorDlg::onCamera() {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        if (change(movie, Recording::UNRECORDED,
                   [&](qxCMovieFrame& frame) { m_keyframe.write(IDC_FRAME_CAMERA, frame); })) {
            tweenAndRefresh(movie);
        }
    });
}

/// One of the properties that are recorded, and in force at once.
void CKeyframeEditorDlg::onFrameMode(UINT controlId) {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        if (change(movie, Recording::RECORDED,
                   [&](qxCMovieFrame& frame) { m_keyframe.write(static_cast<int>(controlId), frame); })) {
            tweenAndRefresh(movie);
        }
    });
}

LRESULT CKeyframeEditorDlg::onColourChanged(WPARAM /*wParam*/, LPARAM controlId) {
    if (controlId == IDC_FADE_COLOUR) {
        onFrameMode(IDC_FADE_COLOUR);
    }
    return 1;
}

/// Shows the movie anew even without a frame to change.
void CKeyframeEditorDlg::onTarget() {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        change(movie, Recording::RECORDED,
               [&](qxCMovieFrame& frame) { m_keyframe.write(IDC_TARGET, frame); });
        tweenAndRefresh(movie);
    });
}

void CKeyframeEditorDlg::onSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    const auto number =
        std::ranges::find(FRAME_NUMBERS, static_cast<int>(pNMHDR->idFrom), &FrameNumber::spinId);
    const bool up = reinterpret_cast<const NMUPDOWN*>(pNMHDR)->iDelta < 0;
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        const auto step = [&](qxCMovieFrame& frame) {
            number->set(frame, steppedValue(number->get(frame), up ? number->step : -number->step));
        };
        if (change(movie, Recording::RECORDED, step)) {
            tweenAndRefresh(movie);
        }
    });
}

void CKeyframeEditorDlg::onEase(UINT controlId) {
    if (!readControls()) {
        return;
    }
    const auto stepped =
        controlId == IDC_EASE_IN_UP || controlId == IDC_EASE_OUT_UP ? easeStepUp : easeStepDown;
    const auto step = [&](qxCMovieFrame& frame) {
        if (controlId == IDC_EASE_IN_DOWN || controlId == IDC_EASE_IN_UP) {
            frame.setEaseIn(stepped(frame.easeIn));
        } else {
            frame.setEaseOut(stepped(frame.easeOut));
        }
    };
    work([&](qxCMovie& movie) {
        if (change(movie, Recording::UNRECORDED, step)) {
            tweenAndRefresh(movie);
        }
    });
}
