#include "terrain/model/map_undo_list.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>

TEST(MapUndoList, AgreesWithAPlainQueueThroughGrowthAndTurnOver) {
    CMapUndoList list;
    std::deque<std::uint32_t> queue;
    std::mt19937 random(5);
    std::uint32_t next = 0;
    for (int phase = 0; phase < 60; ++phase) {
        for (auto pushes = random() % 30'000; pushes > 0; --pushes) {
            list.push({.colour = ++next});
            queue.push_back(next);
        }
        while (queue.size() > CMapUndoList::CAPACITY) {
            queue.pop_front();
        }
        ASSERT_EQ(list.fillPercent(), static_cast<double>(queue.size()) * 100.0 / 100'000);
        for (auto pops = std::min<std::size_t>(random() % 22'000, queue.size()); pops > 0; --pops) {
            ASSERT_EQ(list.pop().colour, queue.back());
            queue.pop_back();
        }
        ASSERT_EQ(static_cast<std::size_t>(list.getCount()), queue.size());
        if (phase == 40) {
            list.clear();
            queue.clear();
            EXPECT_TRUE(list.isEmpty());
        }
    }
}
