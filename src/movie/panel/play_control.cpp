#include "movie/panel/play_control.h"

#include "controls/icon_buttons.h"
#include "platform/framework.h"
#include "resources/resource_ids.h"
#include "sound/sound_manager.h"

#include <utility>

namespace {

std::uint32_t g_nLastIdentity = 0;

} // namespace

CPlayControl::CPlayControl() : m_nIdentity(++g_nLastIdentity) {}

void CPlayControl::start(const CWnd& panel, qxCMovie& movie, qxCAnimator::Callback onMessage,
                         qxCMovie::Callback onEvent) {
    m_bStarting = true;
    if (m_bPlaying) {
        g_soundManager.stopAll(); // of a film that begins again nothing of its end goes on
    }
    m_bPlaying = true;
    m_nLastEventFrame = -1;
    qxCAnimator::setCallback(onMessage);
    qxCMovie::setCallback(onEvent);
    movie.callbackData = m_nIdentity;
    movie.flags &= ~std::uint32_t{qxMovieStopped};
    movie.invalidateBoundingBox(true);
    movie.play();
    m_bStarting = false;
    showState(panel);
}

void CPlayControl::stop(const CWnd& panel, qxCMovie& movie) {
    halt(movie);
    showState(panel);
}

void CPlayControl::end(qxCMovie* movie) {
    if (m_bPlaying && movie != nullptr) {
        halt(*movie);
    }
}

void CPlayControl::halt(qxCMovie& movie) {
    m_bPlaying = false;
    qxCAnimator::setCallback(nullptr);
    qxCMovie::setCallback(nullptr);
    g_soundManager.stopAll();
    movie.flags |= qxMovieStopped;
    movie.invalidateBoundingBox(true);
    movie.animator.setMode(qxAnimatorStopped);
}

void CPlayControl::showState(const CWnd& panel) const {
    setButtonIcon(panel, IDC_PLAY, m_bPlaying ? IDI_STOP : IDI_PLAY);
    panel.GetDlgItem(IDC_PAUSE)->EnableWindow(m_bPlaying ? TRUE : FALSE);
}

bool CPlayControl::isNewFrame(int frame) {
    return std::exchange(m_nLastEventFrame, frame) != frame;
}
