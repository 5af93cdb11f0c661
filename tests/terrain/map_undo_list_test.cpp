#include "terrain/model/map_undo_list.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>

namespace {

MapUndoRecord numbered(int number) {
    MapUndoRecord record;
    record.colour = static_cast<std::uint32_t>(number);
    return record;
}

} // namespace

TEST(MapUndoList, KeepsTheNewestRecordsAndGivesThemBackNewestFirst) {
    CMapUndoList list;
    for (int i = 0; i <= CMapUndoList::CAPACITY; ++i) {
        list.push(numbered(i));
    }
    EXPECT_EQ(list.getCount(), CMapUndoList::CAPACITY);
    EXPECT_EQ(list.fillPercent(), 100.0);
    for (int i = CMapUndoList::CAPACITY; i > 0; --i) {
        ASSERT_EQ(list.pop().colour, static_cast<std::uint32_t>(i));
    }
    EXPECT_TRUE(list.isEmpty()); // record 0, the oldest, is gone
}

TEST(MapUndoList, FillCountsRecordsAgainstTheCapacity) {
    CMapUndoList list;
    list.push(numbered(1));
    EXPECT_DOUBLE_EQ(list.fillPercent(), 0.001);
    list.clear();
    EXPECT_EQ(list.fillPercent(), 0.0);
    EXPECT_TRUE(list.isEmpty());
}

TEST(MapUndoList, AgreesWithAPlainQueueThroughGrowthAndTurnOver) {
    CMapUndoList list;
    std::deque<std::uint32_t> queue;
    std::mt19937 random(5);
    std::uint32_t next = 0;
    for (int phase = 0; phase < 60; ++phase) {
        for (auto pushes = random() % 30'000; pushes > 0; --pushes) {
            list.push(numbered(static_cast<int>(++next)));
            queue.push_back(next);
        }
        while (queue.size() > CMapUndoList::CAPACITY) {
            queue.pop_front();
        }
        const auto pops = std::min<std::size_t>(random() % 22'000, queue.size());
        for (std::size_t i = 0; i < pops; ++i) {
            ASSERT_EQ(list.pop().colour, queue.back());
            queue.pop_back();
        }
        ASSERT_EQ(static_cast<std::size_t>(list.getCount()), queue.size());
        if (phase == 40) {
            list.clear();
            queue.clear();
        }
    }
}
