#include "engine/memory/movie/memory_movie.h"
#include "movie/awkward_movie.h"
#include "movie/frame_change.h"
#include "movie/frame_commands.h"
#include "movie/keyframe_steps.h"
#include "movie/movie_undo_store.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int FAR = std::numeric_limits<int>::max();

TEST(FrameCommands, ADeleteIsTakenBackWhicheverFramesTheEngineKeeps) {
    for (const auto keeps :
         {CAwkwardMovie::Keeps::NOTHING, CAwkwardMovie::Keeps::FIRST, CAwkwardMovie::Keeps::LAST}) {
        CAwkwardMovie movie(9);
        movie.keeps = keeps;
        CMovieUndoStore store;
        movie.last = FAR;
        deleteFrames(movie, store);
        EXPECT_LT(movie.getNumFrames(), 2);
        while (!store.isEmpty()) {
            undoFrameCommand(movie, store);
        }
        EXPECT_EQ(fovs(movie), "012345678");
    }
}

TEST(FrameCommands, RecordNothingThatAnEngineRefuses) {
    CAwkwardMovie movie(3);
    movie.refusesInsert = movie.refusesDelete = true;
    CMovieUndoStore store;
    movie.last = FAR;
    for (const auto command : {insertFrame, addKeyframe, deleteFrames}) {
        command(movie, store);
        EXPECT_TRUE(store.isEmpty());
    }
    movie.hidesFrames = true;
    movie.last = FAR;
    addKeyframe(movie, store);
    deleteFrames(movie, store);
    markKeyframes(movie, KeyframeMark::SET);
    EXPECT_FALSE(editCurrentFrame(movie, store, Recording::RECORDED, [](qxCMovieFrame&) { FAIL(); }));
    CAwkwardMovie empty(0);
    addKeyframe(empty, store);
    EXPECT_EQ(currentFrame(empty), nullptr);
    EXPECT_TRUE(store.isEmpty());

    CAwkwardMovie single(1);
    single.refusesDelete = single.getFrame(0)->keyframe = true;
    editCurrentFrame(single, store, Recording::RECORDED, [](qxCMovieFrame& frame) { frame.setFov(8.0F); });
    undoFrameCommand(single, store);
    EXPECT_EQ(fovs(single), "0") << "the change is taken back, and no second frame is made";
}

TEST(FrameCommands, DeleteAndMarkAHundredThousandFramesInOneGo) {
    CMemoryMovie movie(nullptr, 100'000);
    CMovieUndoStore store;
    movie.setRangeEnd(FAR);
    markKeyframes(movie, KeyframeMark::CLEARED);
    EXPECT_FALSE(movie.getFrame(99'999)->keyframe);
    deleteFrames(movie, store);
    EXPECT_EQ(movie.getNumFrames(), 1);
    EXPECT_EQ(store.getCount(), 99'999);
}

TEST(KeyframeSteps, EndAtTheFirstIndexWithoutFrame) {
    CAwkwardMovie movie(9);
    movie.getFrame(8)->keyframe = true;
    EXPECT_EQ(keyframeBefore(movie, 9), 8);
    EXPECT_EQ(keyframeBefore(movie, 10), std::nullopt);
    EXPECT_EQ(keyframeBefore(movie, -FAR - 1), std::nullopt);
    EXPECT_EQ(keyframeAfter(movie, -1), 8);
    EXPECT_EQ(keyframeAfter(movie, FAR), std::nullopt);
}

} // namespace
