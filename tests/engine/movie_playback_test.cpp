#include "engine/memory/movie/memory_movie.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

/// Hears both callbacks, and does what a test wants done in them.
class MoviePlayback : public testing::Test {
protected:
    MoviePlayback() {
        s_pThis = this;
        movie->callbackData = 7;
        movie->setTriggerHandler([this](const char* animation) {
            m_strHeard += animation;
            hear();
        });
    }
    ~MoviePlayback() override {
        qxCMovie::setCallback(nullptr);
        qxCAnimator::setCallback(nullptr);
    }

    void start() {
        qxCMovie::setCallback([](qxMovieEvent event, const char* text, int value) {
            s_pThis->m_strHeard += event == qxMovieSoundCue ? text : std::to_string(value);
            s_pThis->hear();
        });
        qxCAnimator::setCallback([](qxAnimatorMessage, std::uint32_t data) {
            s_pThis->m_strHeard += "end" + std::to_string(data);
            s_pThis->hear();
        });
        movie->flags &= ~static_cast<std::uint32_t>(qxMovieStopped);
        movie->play();
    }
    std::string heardIn(double seconds) {
        m_strHeard.clear();
        movie->advance(seconds);
        return m_strHeard;
    }
    void addSound(const char* name, float start) {
        movie->addSound(name);
        movie->getSound(movie->getSoundtrackSize() - 1)->start = start;
    }

    std::unique_ptr<CMemoryMovie> movie = std::make_unique<CMemoryMovie>(nullptr, 10, 10.0F);
    std::function<void()> inCallback;
    std::string m_strHeard;

private:
    void hear() {
        m_strHeard += " ";
        if (inCallback) {
            inCallback();
        }
    }
    static inline MoviePlayback* s_pThis = nullptr;
};

TEST_F(MoviePlayback, ReportsFramesCuesTriggersAndTheEnd) {
    addSound("late", 0.9F);
    addSound("wind", 0.0F);
    addSound("bell", 0.25F);
    movie->getFrame(2)->setAnimTrigger("mill");
    movie->getFrame(3)->setAnimTrigger("birds");
    EXPECT_EQ(heardIn(1.0), "") << "not started";
    start();
    EXPECT_EQ(heardIn(0.0), "wind 0 ");
    EXPECT_EQ(heardIn(0.05), "");
    EXPECT_EQ(heardIn(-1.0), "");
    EXPECT_EQ(heardIn(0.36), "bell mill birds 4 ") << "frames passed over";
    EXPECT_EQ(heardIn(NAN), "");
    EXPECT_EQ(heardIn(5.0), "late 9 end7 ");
    EXPECT_EQ(heardIn(1.0), "");
    movie->setRangeSingleFrame(2);
    start();
    EXPECT_EQ(heardIn(0.06), "bell 2 ") << "sounds before the start are silent, triggers have fired";
    movie->resetAnimTriggers();
    movie->setRangeSingleFrame(9);
    start();
    EXPECT_EQ(heardIn(0.3), "wind bell mill birds 3 ") << "from the start when the last frame is current";
    movie->animator.setMode(qxAnimatorStopped);
    EXPECT_EQ(heardIn(1.0), "");
}

TEST_F(MoviePlayback, BeginsAgainFromInsideItsEndWithoutLosingTime) {
    addSound("wind", 0.0F);
    inCallback = [this] {
        if (m_strHeard.ends_with("end7 ")) {
            movie->setRangeSingleFrame(9);
            movie->play();
        }
    };
    start();
    EXPECT_EQ(heardIn(0.95), "wind 9 ");
    EXPECT_EQ(heardIn(0.3), "end7 wind 2 ");
    EXPECT_NEAR(movie->getPlayTime(), 0.25, 1e-9);
    EXPECT_EQ(heardIn(100.05), "9 end7 wind 3 ") << "rounds that nobody saw";
    movie->setSection(MovieSection{6, 4});
    EXPECT_EQ(heardIn(0.45), "6 end7 4 ");
    EXPECT_EQ(heardIn(0.2), "6 ") << "no sound of the part before";
}

TEST_F(MoviePlayback, LooksAgainAfterEachCall) {
    addSound("wind", 0.0F);
    movie->getFrame(0)->setAnimTrigger("mill");
    const struct {
        const char* what;
        std::function<void()> act;
        const char* heard;
    } cases[] = {
        {"stop", [this] { movie->animator.setMode(qxAnimatorStopped); }, "wind "},
        {"stopped flag", [this] { movie->flags |= qxMovieStopped; }, "wind "},
        {"callbacks off",
         [] {
             qxCMovie::setCallback(nullptr);
             qxCAnimator::setCallback(nullptr);
         },
         "wind mill "},
        {"destroyed", [this] { movie.reset(); }, "wind "},
    };
    for (const auto& one : cases) {
        inCallback = one.act;
        movie->resetAnimTriggers();
        start();
        EXPECT_EQ(heardIn(2.0), one.heard) << one.what;
    }
}

} // namespace
