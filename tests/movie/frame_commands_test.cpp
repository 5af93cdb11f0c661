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

/// Frames 0 to count - 1 in an engine of each maker.
std::vector<std::unique_ptr<qxCMovie>> movies(int count) {
    std::vector<std::unique_ptr<qxCMovie>> all;
    all.push_back(std::make_unique<CMemoryMovie>(nullptr, count));
    for (int i = 0; i < count; ++i) {
        all.back()->getFrame(i)->setFov(static_cast<float>(i));
        all.back()->getFrame(i)->setKeyframe(true);
    }
    for (const auto keeps :
         {CAwkwardMovie::Keeps::NOTHING, CAwkwardMovie::Keeps::FIRST, CAwkwardMovie::Keeps::LAST}) {
        auto movie = std::make_unique<CAwkwardMovie>(count);
        movie->keeps = keeps;
        all.push_back(std::move(movie));
    }
    return all;
}

void undoAll(qxCMovie& movie, CMovieUndoStore& store) {
    while (!store.isEmpty()) {
        undoFrameCommand(movie, store);
    }
}

TEST(MovieUndoStore, DropsItsOldestWhenFullAndBelongsToOneMovie) {
    CMovieUndoStore store;
    const CAwkwardMovie one(1);
    store.openFor(&one);
    for (int i = 0; i <= CMovieUndoStore::CAPACITY; ++i) {
        store.pushInserted(i);
    }
    EXPECT_EQ(store.getCount(), CMovieUndoStore::CAPACITY);
    EXPECT_EQ(store.fillPercent(), 100.0F);
    store.openFor(&one);
    for (int i = CMovieUndoStore::CAPACITY; i > 0; --i) {
        ASSERT_EQ(store.pop().frameIndex, i);
    }
    EXPECT_TRUE(store.isEmpty());
    store.pushInserted(1);
    const CAwkwardMovie other(1);
    store.openFor(&other);
    EXPECT_TRUE(store.isEmpty());
}

TEST(FrameCommands, AreTakenBackByAsManyUndosAsTheyRecorded) {
    struct {
        const char* what;
        int first, last;
        std::function<void(qxCMovie&, CMovieUndoStore&)> act;
        const char* after;
        int records;
    } const cases[] = {
        {"delete some", 3, 5, deleteFrames, "012678", 3},
        {"delete to beyond the end", 7, FAR, deleteFrames, "0123456", 2},
        {"delete beyond the end", 9, FAR, deleteFrames, nullptr, -1},
        {"delete all", 0, FAR, deleteFrames, nullptr, -1},
        {"insert", 4, 4, insertFrame, nullptr, 1},
        {"insert behind the end", 9, 9, insertFrame, nullptr, -1},
        {"add keyframe", 2, 2, addKeyframe, "0123456788", 1},
    };
    for (const auto& one : cases) {
        for (const auto& movie : movies(9)) {
            CMovieUndoStore store;
            movie->setRangeStart(one.first);
            movie->setRangeEnd(one.last);
            one.act(*movie, store);
            EXPECT_EQ(fovs(*movie), one.after != nullptr ? one.after : fovs(*movie)) << one.what;
            EXPECT_EQ(store.getCount(), one.records >= 0 ? one.records : store.getCount()) << one.what;
            EXPECT_TRUE(movie->isRangeSingleFrame());
            undoAll(*movie, store);
            EXPECT_EQ(fovs(*movie), "012345678") << one.what;
        }
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
