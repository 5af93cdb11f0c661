#include "platform/resource_builder.h"
#include "platform/resources.h"
#include "resources/resource_ids.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Bytes = std::vector<std::byte>;

/// A dialog of two controls that uses every optional part of the format.
Bytes sampleDialog() {
    CResourceBuilder dialog;
    dialog.u16(1).u16(0xFFFF).u32(7).u32(0x10).u32(0x80C80040);
    dialog.u16(2).u16(1).u16(0xFFFE).u16(120).u16(80);
    dialog.ordinal(9).text(u"Window").text(u"Gr\u00F6\u00DFe \u20AC \U0001F3A8 \xD800!");
    dialog.u16(9).u16(700).u8(1).u8(0).text(u"Sans").align();
    dialog.u32(0).u32(0x200).u32(0x50010000).u16(5).u16(6).u16(70).u16(12).u32(1406);
    dialog.text(u"MSCTLS_Trackbar32").text(u"Strength").u16(3).fill(3, 0xAA).align();
    dialog.u32(0).u32(0).u32(0x50000003).u16(0xFFFF).u16(6).u16(20).u16(20).u32(0xFFFFFFFF);
    dialog.ordinal(0x82).ordinal(2004).u16(0);
    return dialog.bytes();
}

/// Two rows of two pixels: the palette's entries 0, 1 above and 1, 0 below, the bottom right one masked.
Bytes sampleIcon(std::uint32_t width = 2, std::uint32_t doubleHeight = 4, std::uint32_t bitsPerPixel = 4) {
    CResourceBuilder icon;
    icon.u32(40).u32(width).u32(doubleHeight).u16(1).u16(bitsPerPixel).u32(0).fill(20, 0);
    icon.u32(0x00112233).u32(0x00445566).fill(14 * 4, 0); // blue first
    icon.u32(0x10).u32(0x01).u32(0x40).u32(0);
    return icon.bytes();
}

TEST(DialogTemplateReader, ReadsEveryPartOfAnExtendedTemplate) {
    const auto dialog = readDialogTemplate(sampleDialog(), 212);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->rect.y, -2);
    EXPECT_EQ(dialog->rect.width, 120);
    EXPECT_EQ(dialog->style, 0x80C80040U);
    EXPECT_EQ(dialog->caption, "Gr\u00F6\u00DFe \u20AC \U0001F3A8 \uFFFD!");
    EXPECT_EQ(dialog->fontFace, "Sans");
    EXPECT_EQ(dialog->fontPointSize, 9);
    ASSERT_EQ(dialog->items.size(), 2U);
    const DialogItem& slider = dialog->items[0];
    EXPECT_EQ(slider.id, 1406);
    EXPECT_EQ(slider.windowClass, "msctls_trackbar32");
    EXPECT_EQ(slider.text, "Strength");
    EXPECT_EQ(slider.exStyle, 0x200U);
    EXPECT_EQ(slider.rect.height, 12);
    const DialogItem& picture = dialog->items[1];
    EXPECT_EQ(picture.id, -1);
    EXPECT_EQ(picture.rect.x, -1);
    EXPECT_EQ(picture.windowClass, "Static");
    EXPECT_EQ(picture.resourceOrdinal, 2004);
}

TEST(IconReader, DecodesTheTopRowFirst) {
    const auto icon = readIconImage(sampleIcon());
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->pixels,
              (std::vector<std::uint8_t>{0x11, 0x22, 0x33, 255, 0x44, 0x55, 0x66, 255, // top row
                                         0x44, 0x55, 0x66, 255, 0x11, 0x22, 0x33, 0}));
}

// Each prefix lives in memory of exactly its size, so that a read past it is caught by the sanitizer. An odd
// length is never the end of a file's entry.
template <typename Read> void expectEveryPrefixRefused(const Bytes& whole, std::size_t step, Read read) {
    ASSERT_TRUE(read(whole));
    for (std::size_t length = 1; length < whole.size(); length += step) {
        const Bytes prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(read(prefix)) << length << " bytes";
    }
}

TEST(DamagedResources, AreRefused) {
    expectEveryPrefixRefused(sampleDialog(), 1,
                             [](const Bytes& b) { return readDialogTemplate(b, 1).has_value(); });
    expectEveryPrefixRefused(sampleIcon(), 1, [](const Bytes& b) { return readIconImage(b).has_value(); });
    const auto embedded = embeddedResources();
    expectEveryPrefixRefused(Bytes(embedded.begin(), embedded.end()), 98, [](const Bytes& b) {
        return findIcon(b, IDI_BRUSH_VERTEX).has_value() || findDialog(b, IDD_TEXTURE_LIST).has_value();
    });
    Bytes plain = sampleDialog();
    plain[2] = std::byte{0};
    EXPECT_FALSE(readDialogTemplate(plain, 1)) << "another form of template";
    for (const auto& [width, doubleHeight, depth] :
         {std::array{0U, 4U, 4U}, {0x80000000U, 4U, 4U}, {2U, 5U, 4U}, {2U, 0x80000000U, 4U}, {2U, 4U, 8U}}) {
        Bytes icon = sampleIcon(width, doubleHeight, depth);
        icon.resize(4096);
        EXPECT_FALSE(readIconImage(icon)) << width << ", " << doubleHeight << ", " << depth;
    }
}

} // namespace
