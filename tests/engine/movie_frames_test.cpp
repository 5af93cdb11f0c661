#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "engine/qx_node_iterator.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

/// The frames of a movie by the names of their animations, the range in brackets.
std::string order(CMemoryMovie& movie) {
    std::string text;
    for (int i = 0; i < movie.getNumFrames(); ++i) {
        text += i == movie.getRangeStart() ? "[" : "";
        const char* const name = movie.getFrame(i)->animTrigger;
        text += *name != 0 ? name : "-";
        text += i == movie.getRangeEnd() ? "]" : "";
    }
    return text;
}

/// Frames a to f, the range on c to d.
void fill(CMemoryMovie& movie) {
    for (int i = 0; i < movie.getNumFrames(); ++i) {
        movie.getFrame(i)->setAnimTrigger(std::string(1, static_cast<char>('a' + i)).c_str());
    }
    movie.setRangeStart(2);
    movie.setRangeEnd(3);
}

TEST(MovieFrames, EditsMoveFramesAndRange) {
    const struct {
        const char* what;
        std::function<void(CMemoryMovie&)> edit;
        const char* expected;
    } cases[] = {
        {"insert before", [](auto& m) { m.insertFrame(0, nullptr); }, "-ab[cd]ef"},
        {"insert at start", [](auto& m) { m.insertFrame(2, nullptr); }, "ab-[cd]ef"},
        {"insert inside", [](auto& m) { m.insertFrame(3, nullptr); }, "ab[c-d]ef"},
        {"insert behind", [](auto& m) { m.insertFrame(4, nullptr); }, "ab[cd]-ef"},
        {"append", [](auto& m) { m.insertFrame(6, new qxCMovieFrame); }, "ab[cd]ef-"},
        {"insert outside", [](auto& m) { m.insertFrame(7, new qxCMovieFrame); }, "ab[cd]ef"},
        {"delete before", [](auto& m) { m.deleteFrame(0); }, "b[cd]ef"},
        {"delete inside", [](auto& m) { m.deleteFrame(2); }, "ab[d]ef"},
        {"delete both", [](auto& m) { m.deleteFrame(2), m.deleteFrame(2); }, "ab[e]f"},
        {"delete outside", [](auto& m) { m.deleteFrame(6), m.deleteFrame(-1); }, "ab[cd]ef"},
        {"delete range", [](auto& m) { m.deleteRange(); }, "ab[e]f"},
        {"delete to the end", [](auto& m) { m.setRangeEnd(99), m.deleteRange(); }, "a[b]"},
        {"delete all", [](auto& m) { m.setRangeStart(-5), m.setRangeEnd(99), m.deleteRange(); }, "[a]"},
        {"delete last of all",
         [](auto& m) {
             for (int i = 0; i < 9; ++i) {
                 m.deleteFrame(0);
             }
         },
         "[f]"},
        {"cut and paste", [](auto& m) { m.cut(), m.paste(0), m.paste(6); }, "cdabef[cd]"},
        {"paste outside", [](auto& m) { m.copy(), m.paste(7), m.paste(-1); }, "ab[cd]ef"},
        {"duplicate", [](auto& m) { m.duplicateFrame(0, 5), m.duplicateFrame(0, 6); }, "ab[cd]ea"},
        {"swap", [](auto& m) { m.swapFrames(0, 5), m.swapFrames(-1, 2); }, "fb[cd]ea"},
        {"start beyond end", [](auto& m) { m.setRangeStart(4); }, "abcd[e]f"},
        {"end before start", [](auto& m) { m.setRangeEnd(1); }, "a[b]cdef"},
    };
    for (const auto& one : cases) {
        CMemoryMovie movie(nullptr, 6);
        fill(movie);
        one.edit(movie);
        EXPECT_EQ(order(movie), one.expected) << one.what;
        EXPECT_EQ(movie.getFrame(movie.getNumFrames()), nullptr);
    }
}

TEST(Scene, FindsItsOwnCameraBeforeThoseOfMoviesAndForgetsOneThatLeaves) {
    CMemoryScene scene;
    CMemoryCamera own(&scene, "own");
    CMemoryMovie movie(&scene);
    CMemoryCamera& child = movie.addCamera("child");
    qxCNodeIterator iterator;
    EXPECT_EQ(iterator.findFirst(qxNodeCamera), nullptr);
    iterator.setRootNode(&scene);
    EXPECT_EQ(iterator.findFirst(qxNodeCamera), nullptr);
    scene.addNode(&movie);
    EXPECT_EQ(iterator.findFirst(qxNodeCamera), &child);
    scene.removeNode(&movie);
    scene.addNode(&own);
    scene.addNode(&movie);
    EXPECT_EQ(iterator.findFirst(qxNodeCamera), &own);
    scene.selectCamera(&child);
    scene.selectCamera(nullptr);
    EXPECT_EQ(scene.getSelectedCamera(), &child);
    scene.removeNode(&movie);
    EXPECT_EQ(scene.getSelectedCamera(), nullptr);
}

} // namespace
