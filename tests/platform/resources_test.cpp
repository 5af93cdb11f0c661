#include "platform/resource_builder.h"
#include "platform/resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::uint32_t TYPE_ICON = 3;
constexpr std::uint32_t TYPE_DIALOG = 5;
constexpr std::uint32_t TYPE_ICON_GROUP = 14;

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

struct IconShape {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t bitsPerPixel = 0;
    std::uint32_t coloursUsed = 0;
};

CResourceBuilder iconHeader(const IconShape& shape) {
    CResourceBuilder icon;
    icon.u32(40).u32(shape.width).u32(shape.height * 2).u16(1).u16(shape.bitsPerPixel).u32(0).fill(12, 0);
    icon.u32(shape.coloursUsed).u32(0);
    return icon;
}

/// Two rows of two pixels: the palette's entries 0, 1 above and 1, 0 below, the bottom right one masked.
Bytes indexedIcon(std::uint32_t bitsPerPixel) {
    CResourceBuilder icon = iconHeader({2, 2, bitsPerPixel, 2});
    icon.u32(0x00112233).u32(0x00445566); // blue first
    const std::uint32_t zeroOne = bitsPerPixel == 1 ? 0x40 : bitsPerPixel == 4 ? 0x01 : 0x0100;
    const std::uint32_t oneZero = bitsPerPixel == 1 ? 0x80 : bitsPerPixel == 4 ? 0x10 : 0x0001;
    icon.u32(oneZero).u32(zeroOne);
    icon.u32(0x40).u32(0);
    return icon.bytes();
}

Bytes trueColourIcon() {
    CResourceBuilder icon = iconHeader({2, 2, 24, 0});
    icon.u8(0x66).u8(0x55).u8(0x44).u8(0x33).u8(0x22).u8(0x11).u16(0);
    icon.u8(0x33).u8(0x22).u8(0x11).u8(0x66).u8(0x55).u8(0x44).u16(0);
    icon.u32(0x40).u32(0);
    return icon.bytes();
}

/// The same four pixels with alpha in the top byte; the mask does not count unless all alphas are nothing.
Bytes alphaIcon(std::uint32_t alpha) {
    const std::uint32_t top = alpha << 24;
    CResourceBuilder icon = iconHeader({2, 2, 32, 0});
    icon.u32(top | 0x445566).u32(top | 0x112233).u32(top | 0x112233).u32(top | 0x445566);
    icon.u32(0x40).u32(0);
    return icon.bytes();
}

std::vector<std::uint8_t> expectedPixels(std::uint8_t alpha, std::uint8_t alphaOfMasked) {
    return {0x11, 0x22, 0x33, alpha, 0x44, 0x55, 0x66, alpha, // top row
            0x44, 0x55, 0x66, alpha, 0x11, 0x22, 0x33, alphaOfMasked};
}

Bytes iconGroup(std::span<const std::array<std::uint32_t, 3>> widthDepthAndId) {
    CResourceBuilder group;
    group.u16(0).u16(1).u16(static_cast<std::uint32_t>(widthDepthAndId.size()));
    for (const auto& [width, depth, id] : widthDepthAndId) {
        group.u8(width).u8(width).u8(0).u8(0).u16(1).u16(depth).u32(100).u16(id);
    }
    return group.bytes();
}

Bytes sampleFile() {
    const std::array<std::array<std::uint32_t, 3>, 1> images = {{{32, 4, 1}}};
    CResourceBuilder file;
    file.entry(0, 0, {}).entry(TYPE_DIALOG, 212, sampleDialog());
    file.entry(TYPE_ICON, 1, indexedIcon(4)).entry(TYPE_ICON_GROUP, 2004, iconGroup(images));
    return file.bytes();
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
    EXPECT_EQ(picture.text, "");
}

TEST(DialogTemplateReader, RefusesOtherFormsAndUnknownClasses) {
    Bytes plain = sampleDialog();
    plain[2] = std::byte{0};
    EXPECT_FALSE(readDialogTemplate(plain, 1));
    CResourceBuilder unknownClass;
    unknownClass.u16(1).u16(0xFFFF).fill(12, 0).u16(1).fill(8, 0).u16(0).u16(0).u16(0).align();
    unknownClass.fill(24, 0).ordinal(0x86).u16(0).u16(0);
    EXPECT_FALSE(readDialogTemplate(unknownClass.bytes(), 1));
}

TEST(IconReader, DecodesEveryDepthTopRowFirst) {
    struct Case {
        const char* name;
        Bytes data;
        std::vector<std::uint8_t> pixels;
    };
    for (const auto& [name, data, pixels] :
         {Case{"1 bit", indexedIcon(1), expectedPixels(255, 0)},
          Case{"4", indexedIcon(4), expectedPixels(255, 0)},
          Case{"8", indexedIcon(8), expectedPixels(255, 0)},
          Case{"24", trueColourIcon(), expectedPixels(255, 0)},
          Case{"32", alphaIcon(128), expectedPixels(128, 128)},
          Case{"32 without alpha", alphaIcon(0), expectedPixels(255, 0)}}) {
        const auto icon = readIconImage(data);
        ASSERT_TRUE(icon) << name;
        EXPECT_EQ(icon->width, 2) << name;
        EXPECT_EQ(icon->height, 2) << name;
        EXPECT_EQ(icon->pixels, pixels) << name;
    }
}

TEST(IconReader, RefusesImpossibleShapes) {
    const auto refused = [](const IconShape& shape) {
        return !readIconImage(iconHeader(shape).fill(4096, 0).bytes());
    };
    EXPECT_TRUE(refused({0, 2, 4, 0}));
    EXPECT_TRUE(refused({257, 1, 1, 0}));
    EXPECT_TRUE(refused({0x80000000U, 2, 4, 0}));
    EXPECT_TRUE(refused({2, 0x40000000U, 4, 0})) << "the double height is negative";
    EXPECT_TRUE(refused({2, 2, 16, 0}));
    EXPECT_TRUE(refused({2, 2, 4, 17}));
    EXPECT_TRUE(refused({2, 2, 32, 0xFFFFFFFF}));
    EXPECT_TRUE(refused({256, 256, 8, 0}));
    EXPECT_FALSE(refused({2, 2, 4, 0}));
    Bytes oddHeight = indexedIcon(4);
    oddHeight[8] = std::byte{5}; // two rows and a half
    EXPECT_FALSE(readIconImage(oddHeight));
    Bytes beyondPalette = indexedIcon(4);
    beyondPalette[48] = std::byte{0x20}; // colour 2 of 2
    EXPECT_FALSE(readIconImage(beyondPalette));
}

TEST(ResourceFile, TakesTheImageNearestInSizeThenDeepest) {
    const std::array<std::array<std::uint32_t, 3>, 5> images = {
        {{16, 32, 1}, {0, 32, 2}, {48, 4, 3}, {48, 8, 4}, {24, 32, 5}}}; // 0 stands for 256
    const std::array<std::uint32_t, 5> sizes = {16, 256, 48, 48, 24};
    CResourceBuilder file;
    file.entry(TYPE_ICON_GROUP, 7, iconGroup(images));
    for (std::uint32_t i = 0; i < sizes.size(); ++i) {
        const std::uint32_t marked = i + 1; // each image is told by its width, so that the choice shows
        file.entry(TYPE_ICON, i + 1, iconHeader({marked, 1, 1, 0}).fill(16, 0).bytes());
    }
    const auto chosen = [&file](int desired) {
        const auto icon = findIcon(file.bytes(), 7, desired);
        return icon ? icon->width : 0;
    };
    EXPECT_EQ(chosen(16), 1);
    EXPECT_EQ(chosen(200), 2);
    EXPECT_EQ(chosen(32), 5);
    EXPECT_EQ(chosen(36), 4) << "between 24 and 48 the larger, at its greater depth";
    EXPECT_FALSE(findIcon(file.bytes(), 8));
}

TEST(ResourceFile, RefusesAHeaderThatMisstatesItsSize) {
    for (const int size : {28, 36}) {
        Bytes file = sampleFile();
        file[4] = static_cast<std::byte>(size);
        EXPECT_FALSE(findDialog(file, 212)) << size;
    }
}

TEST(ResourceFile, PassesOverNamedEntries) {
    CResourceBuilder file;
    const std::u16string_view type = u"TEXT";
    const std::u16string_view name = u"NOTE";
    file.u32(3).u32(44).text(type).text(name).fill(16, 0).fill(3, 'x').align();
    file.entry(TYPE_DIALOG, 212, sampleDialog());
    EXPECT_TRUE(findDialog(file.bytes(), 212));
}

// Each prefix lives in memory of exactly its size, so that a read past it is caught by the sanitizer.
template <typename Read> void expectEveryPrefixRefused(const Bytes& whole, Read read) {
    ASSERT_TRUE(read(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Bytes prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(read(prefix)) << length << " bytes";
    }
}

TEST(DamagedResources, AreRefusedWhenCutShort) {
    expectEveryPrefixRefused(sampleDialog(),
                             [](const Bytes& b) { return readDialogTemplate(b, 1).has_value(); });
    for (const Bytes& icon : {indexedIcon(1), indexedIcon(8), trueColourIcon(), alphaIcon(9)}) {
        expectEveryPrefixRefused(icon, [](const Bytes& b) { return readIconImage(b).has_value(); });
    }
    // The icon group stands last: without its end the file has no icon, whichever byte is missing.
    expectEveryPrefixRefused(sampleFile(), [](const Bytes& b) { return findIcon(b, 2004).has_value(); });
}

TEST(DamagedResources, NeverLeadOutsideTheFile) {
    const Bytes whole = sampleFile();
    int stillRead = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int change : {0x01, 0x7F, 0x80, 0xFF}) {
            Bytes damaged = whole;
            damaged[at] ^= static_cast<std::byte>(change);
            const auto dialog = findDialog(damaged, 212);
            const auto icon = findIcon(damaged, 2004);
            EXPECT_TRUE(!dialog || dialog->items.size() <= whole.size() / 24) << at;
            EXPECT_TRUE(!icon ||
                        icon->pixels.size() == static_cast<std::size_t>(icon->width * icon->height * 4))
                << at;
            stillRead += dialog || icon ? 1 : 0;
        }
    }
    EXPECT_GT(stillRead, 0);
}

} // namespace
