#include "host/random_session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace {

/// An instrumented build takes longer for the same session.
#ifdef __SANITIZE_ADDRESS__
constexpr std::uint64_t SUITE_SHARE = 1;
#else
constexpr std::uint64_t SUITE_SHARE = 6;
#endif

std::uint64_t setting(const char* name, std::uint64_t standard) {
    const char* const value = std::getenv(name);
    return value != nullptr ? std::strtoull(value, nullptr, 10) : standard;
}

} // namespace

// One restless session, in which the editor is opened and closed all the time, then a long one, in which the
// history fills up.
TEST(RandomSession, TheCoreStaysAlikeToTheReference) {
    const std::uint64_t seed = setting("VESK_SESSION_SEED", 1);
    const auto count = static_cast<std::int64_t>(setting("VESK_SESSION_OPS", SUITE_SHARE * 20'000));
    std::cout << count << " random operations, seed " << seed << std::endl;
    CReferenceEditor reference; // what the module remembers goes on from one to the other
    struct {
        std::int64_t operations;
        int closings;
    } const sessions[] = {{count / 8, 300}, {count - count / 8, 2}};
    for (const auto& [operations, closings] : sessions) {
        CRandomSession session(reference, seed, closings);
        ASSERT_TRUE(session.run(operations));
        ASSERT_TRUE(session.undoAll());
    }
}
