#include "host/ui_events/movie_stage.h"

#include "host/veskutil.h"

#include <array>

void CMovieStage::makeMovie() {
    constexpr std::array LENGTHS = {1, 20, 300, 5000};
    m_pMovie = std::make_unique<CMemoryMovie>(&m_scene, m_dice.of(LENGTHS));
    for (int cameras = m_dice.below(3); cameras > 0; --cameras) {
        m_pMovie->addCamera("camera");
    }
    for (int i = 0; i < m_pMovie->getNumFrames(); i += m_dice.between(1, 30)) {
        m_pMovie->getFrame(i)->setKeyframe(true);
        m_pMovie->getFrame(i)->setFadeMode(static_cast<qxMovieFadeMode>(m_dice.below(3)));
    }
    m_pMovie->updateTweening();
    m_scene.addNode(m_pMovie.get());
}

void CMovieStage::open(HWND parent) {
    vuCreateMovieEditor(parent, m_pMovie.get(), !m_dice.oneIn(6));
}

void CMovieStage::replaceMovie() {
    end();
    makeMovie();
}

void CMovieStage::end() {
    vuDestroyMovieEditor();
    if (m_pMovie != nullptr) {
        m_scene.removeNode(m_pMovie.get());
        m_pMovie.reset();
    }
}

void CMovieStage::call() {
    switch (m_dice.below(6)) {
    case 0:
        return vuMovieCameraAltered(m_pMovie->getChildCamera(m_dice.below(2)), m_dice.oneIn(3));
    case 1:
        return m_pMovie->setRangeSingleFrame(m_dice.below(30));
    case 2:
        return m_pMovie->deleteFrame(m_dice.below(30));
    case 3:
        return vuSoundUpdate();
    default:
        m_pMovie->advance(m_dice.below(100) / 100.0);
    }
}
