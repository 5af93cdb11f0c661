#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "support/frame_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

void setKey(CMemoryMovie& movie, int index, float value, qxMovieFrameMode mode = qxMovieFrameLinear) {
    qxCMovieFrame& frame = *movie.getFrame(index);
    frame.setTranslation({value, -value, 0.0F});
    frame.setRotation({value, value, value});
    frame.setFrameMode(mode);
    frame.setKeyframe(true);
}

/// Values of the monotone cubic of Fritsch and Butland.
TEST(Tweening, ASplineIsTheMonotoneCubicThroughItsKeyframes) {
    CMemoryMovie movie(nullptr, 41);
    for (const auto& [index, value] :
         {std::pair{0, 0.0F}, {10, 10.0F}, {15, 40.0F}, {30, 41.0F}, {40, 41.0F}}) {
        setKey(movie, index, value, qxMovieFrameSpline);
    }
    movie.updateTweening();
    for (const auto& [index, x] : {std::pair{11, 14.2865F}, {12, 21.8251F}, {13, 30.2204F}, {14, 37.0771F}}) {
        EXPECT_NEAR(movie.getFrame(index)->translation.x, x, 1e-3F) << index;
    }
    for (int index = 30; index <= 40; ++index) {
        EXPECT_EQ(movie.getFrame(index)->translation.x, 41.0F) << "nothing overshoots";
    }
}

TEST(Tweening, AnglesGoTheShortWayRound) {
    CMemoryMovie movie(nullptr, 11);
    for (const auto& [from, to, middle] :
         {std::array{350.0F, 10.0F, 360.0F}, std::array{10.0F, 350.0F, 0.0F}, std::array{0.0F, 720.0F, 0.0F},
          std::array{-170.0F, 170.0F, -180.0F}}) {
        setKey(movie, 0, from, qxMovieFrameSpline);
        setKey(movie, 10, to);
        movie.updateTweening();
        const qxCVector3d& rotation = movie.getFrame(5)->rotation;
        for (const float angle : {rotation.x, rotation.y, rotation.z}) {
            EXPECT_NEAR(angle, middle, 1e-4F) << from << " to " << to;
        }
    }
}

TEST(Tweening, EasesOutOfAKeyframeAndIntoTheNext) {
    CMemoryMovie movie(nullptr, 101);
    setKey(movie, 0, 0.0F);
    setKey(movie, 100, 100.0F);
    const auto x = [&movie](int index) { return movie.getFrame(index)->translation.x; };
    for (const auto& [easeOut, easeIn, at10, at90] :
         {std::array{0.5F, 0.5F, 10.0F, 90.0F}, std::array{0.2F, 0.8F, 2.941F, 97.059F},
          std::array{0.8F, 0.2F, 25.0F, 75.0F}, std::array{0.0F, 1.0F, 0.0F, 100.0F},
          std::array{1.0F, 0.0F, 50.0F, 50.0F}}) {
        movie.getFrame(0)->setEaseOut(easeOut);
        movie.getFrame(100)->setEaseIn(easeIn);
        movie.updateTweening();
        EXPECT_NEAR(x(10), at10, 1e-3F) << easeOut;
        EXPECT_NEAR(x(50), 50.0F, 1e-3F) << easeOut;
        EXPECT_NEAR(x(90), at90, 1e-3F) << easeIn;
    }
}

TEST(Tweening, FadesRunUntilTheNextKeyframe) {
    CMemoryMovie movie(nullptr, 31);
    movie.getFrame(0)->setFadeMode(qxMovieFadeIn);
    movie.getFrame(0)->setEaseOut(0.1F);
    movie.getFrame(10)->setKeyframe(true);
    movie.getFrame(20)->setKeyframe(true);
    movie.getFrame(20)->setFadeMode(qxMovieFadeOut);
    movie.getFrame(20)->setFadeColour({9, 8, 7, 255});
    movie.getFrame(30)->setFadeMode(qxMovieFadeOut);
    movie.updateTweening();
    std::vector<float> levels;
    for (const int index : {0, 5, 10, 15, 20, 24, 30}) {
        levels.push_back(std::round(movie.getFrame(index)->fadeLevel * 1000.0F) / 1000.0F);
    }
    EXPECT_EQ(levels, (std::vector<float>{0.0F, 0.5F, 1.0F, 1.0F, 1.0F, 0.6F, 0.0F}));
    EXPECT_EQ(movie.getFrame(24)->getFadeColour(), qxCColour(9, 8, 7, 255));
    EXPECT_EQ(movie.getFrame(24)->fadeMode, qxMovieFadeOut);
}

TEST(Tweening, PosesAndPathAgreeWithTheFramesToTheBit) {
    CMemoryScene scene;
    CMemoryCamera mill(&scene, "mill");
    mill.position = {3.0F, 4.0F, 5.0F};
    scene.addNode(&mill);
    std::mt19937 random(11);
    for (const float stepRate : {25.0F, 29.97F, 7.3F}) {
        CMemoryMovie movie(&scene, 3000, stepRate);
        movie.addCamera("one");
        movie.addCamera("two");
        fillRandomly(movie, random);
        movie.updateTweening();
        for (int index = 0; index < movie.getNumFrames(); ++index) {
            const qxCMovieFrame& frame = *movie.getFrame(index);
            const float time = movie.convertFrameToTime(index);
            const MoviePose pose = movie.poseAt(time);
            ASSERT_EQ(pose.position, frame.translation) << index;
            ASSERT_EQ(pose.fieldOfView, frame.fov);
            ASSERT_EQ(pose.shake, frame.shake);
            ASSERT_EQ(pose.fadeLevel, frame.fadeLevel);
            qxCVector3d rotation = frame.rotation;
            if (frame.cameraMode == qxMovieCameraTarget &&
                frame.targetName.getString() == std::string("mill")) {
                (mill.position - frame.translation).toAngles(rotation.x, rotation.y);
                ASSERT_NEAR(pose.rotation.y, rotation.y, 1e-4F);
            } else {
                ASSERT_EQ(pose.rotation, rotation) << index;
            }
            movie.updateManual(time);
            ASSERT_EQ(movie.getPose(), pose);
            if (const qxCCamera* const camera = movie.getChildCamera(frame.camera)) {
                ASSERT_EQ(camera->position, pose.position);
                ASSERT_EQ(camera->rotation, pose.rotation);
                ASSERT_EQ(camera->getFieldOfView(), pose.fieldOfView);
            }
        }
        EXPECT_EQ(movie.poseAt(1e9), movie.poseAt(movie.convertFrameToTime(2999)));
        EXPECT_EQ(movie.poseAt(-INFINITY), movie.poseAt(0.0));
        EXPECT_EQ(movie.poseAt(NAN), movie.poseAt(0.0));
    }
}

TEST(Tweening, OnlyWhatChangedIsDoneAgainWithTheSameOutcome) {
    std::mt19937 random(3);
    CMemoryMovie movie(nullptr, 400);
    fillRandomly(movie, random);
    for (int round = 0; round < 600; ++round) {
        const int index = static_cast<int>(random()) & 255;
        qxCMovieFrame& frame = *movie.getFrame(index % movie.getNumFrames());
        switch (random() % 7) {
        case 0:
            frame.setKeyframe(!frame.keyframe);
            break;
        case 1:
            frame.setFrameMode(static_cast<qxMovieFrameMode>(random() % 3));
            break;
        case 2:
            movie.insertFrame(index, nullptr);
            break;
        case 3:
            movie.deleteFrame(index);
            break;
        case 4:
            movie.duplicateFrame(index, index / 2);
            break;
        case 5:
            movie.swapFrames(index, index / 2);
            break;
        default:
            frame.setTranslation({static_cast<float>(round), 1.0F, 2.0F});
            break;
        }
        movie.updateTweening();
        CMemoryMovie whole(nullptr);
        for (int i = 0; i < movie.getNumFrames(); ++i) {
            whole.insertFrame(i, new qxCMovieFrame(*movie.getFrame(i)));
        }
        whole.deleteFrame(movie.getNumFrames());
        whole.updateTweening();
        ASSERT_TRUE(valuesOf(movie) == valuesOf(whole)) << "round " << round;
    }
}

} // namespace
