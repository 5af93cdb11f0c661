#include "engine/allocation_watch.h"
#include "engine/memory/image/image_decoder.h"
#include "engine/png_bytes.h"
#include "engine/tga_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::size_t largestAllocationFor(const Bytes& file, bool isImage) {
    allocation_watch::restart();
    EXPECT_EQ(decodeImage(file).has_value(), isImage);
    return allocation_watch::largest();
}

TEST(DecoderMemory, AHeaderThatPromisesTooMuchTakesNone) {
    constexpr std::size_t SMALL = 4096;
    for (const int kind : {2, 10}) {
        Bytes file = tgaHeader(kind, 4096, 4096, 32);
        file.resize(file.size() + 5000, 0xFF);
        EXPECT_LT(largestAllocationFor(file, false), SMALL) << "TGA kind " << kind;
    }
    Bytes file = makePng(2, 2, 6, 8, false, Bytes(16));
    EXPECT_GE(largestAllocationFor(file, true), 4 * sizeof(qxCColour)) << "allocations are seen at all";
    // The header chunk of a picture of 4096 x 4096, with its check sum, in the place of the true one.
    const Bytes large = makePng(4096, 4096, 0, 1, false, Bytes(std::size_t{512} * 4096));
    std::copy_n(large.begin(), 33, file.begin());
    EXPECT_LT(largestAllocationFor(file, false), SMALL) << "PNG";
}

} // namespace
