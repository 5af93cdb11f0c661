#include "terrain/texture_preview.h"

#include "engine/memory/engine_directories.h"
#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "engine/qx_random.h"
#include "engine/qx_texture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

using Item = CTexturePreview::Item;

/// The picture's formulas, one pixel at a time and as they are told on paper.
class CSlowReference {
public:
    explicit CSlowReference(const CTexturePreview::Definition& definition) {
        qxCRandom random;
        random.setSeed(123);
        for (int i = 0; i <= 8; ++i) {
            for (int j = 0; j <= 8; ++j) {
                m_tints[i][j] = interpolate(definition.tint1, definition.tint2, random.get(1.0F));
            }
        }
        random.setSeed(345);
        for (int i = 0; i <= 8; ++i) {
            for (int j = 0; j <= 8; ++j) {
                const float spread = random.get(-definition.variation, definition.variation);
                m_fBlends[i][j] = std::clamp(definition.blend + spread, 0.0F, 1.0F);
            }
        }
    }

    qxCColour tintAt(int x, int y) const {
        const int bi = x / 32;
        const int bj = y / 32;
        const float w = static_cast<float>(x % 32) / 32;
        const float u = static_cast<float>(y % 32) / 32;
        return interpolate(interpolate(m_tints[bi][bj], m_tints[bi][bj + 1], u),
                           interpolate(m_tints[bi + 1][bj], m_tints[bi + 1][bj + 1], u), w);
    }

    float blendAt(int x, int y) const {
        const int bi = x / 32;
        const int bj = y / 32;
        const float w = static_cast<float>(x % 32) / 32;
        const float u = static_cast<float>(y % 32) / 32;
        const float left = m_fBlends[bi][bj] + u * (m_fBlends[bi][bj + 1] - m_fBlends[bi][bj]);
        const float right = m_fBlends[bi + 1][bj] + u * (m_fBlends[bi + 1][bj + 1] - m_fBlends[bi + 1][bj]);
        return left + w * (right - left);
    }

    qxCColour pixelAt(const qxCImageFile& smooth, const qxCImageFile& rough, int x, int y) const {
        return tint(interpolate(smooth.getPixel(x, y), rough.getPixel(x, y), blendAt(x % 256, y % 256)),
                    tintAt(x % 256, y % 256));
    }

private:
    qxCColour m_tints[9][9];
    float m_fBlends[9][9] = {};
};

class TexturePreview : public testing::Test {
protected:
    void SetUp() override {
        m_folder = std::filesystem::temp_directory_path() / ("texture_preview_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_folder);
        CEngineDirectories::setDirectories({m_folder});
    }
    void TearDown() override {
        CEngineDirectories::setDirectories({});
        std::filesystem::remove_all(m_folder);
    }

    /// A true-colour image with alpha whose pixels all differ.
    void writeImage(const char* name, int width, int height, unsigned seed) {
        std::ofstream file(m_folder / name, std::ios::binary);
        const int header[18] = {
            0,  0,   2, 0, 0, 0, 0, 0, 0, 0, 0, 0, width % 256, width / 256, height % 256, height / 256,
            32, 0x28};
        for (const int byte : header) {
            file.put(static_cast<char>(byte));
        }
        std::mt19937 noise(seed);
        for (int i = 0; i < width * height * 4; ++i) {
            file.put(static_cast<char>(noise() & 0xFF));
        }
    }

    void setBase(qxMapLayerType layer, const char* name) {
        qxCTexture* texture = m_scene.createTexture();
        texture->setFilename(name);
        m_map.setTexture(layer, texture);
    }

    std::filesystem::path m_folder;
    CMemoryScene m_scene;
    CMemoryMap m_map{16, &m_scene};
    std::unique_ptr<CTexturePreview> m_pPreview = std::make_unique<CTexturePreview>();
    CTexturePreview::Definition m_definition{{250, 120, 30, 255}, {20, 200, 140, 255}, 0.45F, 0.4F};
};

TEST_F(TexturePreview, EveryPixelIsWhatTheFormulasGive) {
    const std::pair<int, int> sizes[] = {{256, 256}, {64, 32}, {1, 1}, {300, 520}};
    for (const auto& [width, height] : sizes) {
        writeImage("smooth.tga", width, height, 1);
        writeImage("rough.tga", width, height, 2);
        setBase(qxMapLayerSmooth, "smooth.tga");
        setBase(qxMapLayerRough, "rough.tga");
        m_pPreview->invalidateAll();
        const qxCImageFile* shown = m_pPreview->showDefinition(m_definition, m_map);
        ASSERT_NE(shown, nullptr);
        ASSERT_EQ(std::pair(shown->width, shown->height), std::pair(width, height));

        qxCImageFile smooth;
        qxCImageFile rough;
        ASSERT_TRUE(smooth.load("smooth.tga", false) && rough.load("rough.tga", false));
        const CSlowReference reference(m_definition);
        int wrong = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                wrong += shown->getPixel(x, y) == reference.pixelAt(smooth, rough, x, y) ? 0 : 1;
            }
        }
        EXPECT_EQ(wrong, 0) << width << " x " << height;
    }
}

TEST_F(TexturePreview, NothingIsShownWithoutTwoImagesOfOneSize) {
    writeImage("a.tga", 8, 8, 1);
    writeImage("b.tga", 8, 4, 2);
    const auto show = [&] {
        m_pPreview->invalidateAll();
        return m_pPreview->showDefinition(m_definition, m_map);
    };
    EXPECT_EQ(show(), nullptr) << "no base textures";
    setBase(qxMapLayerSmooth, "a.tga");
    EXPECT_EQ(show(), nullptr) << "no rough texture";
    setBase(qxMapLayerRough, "b.tga");
    EXPECT_EQ(show(), nullptr) << "sizes differ";
    setBase(qxMapLayerRough, "missing.tga");
    EXPECT_EQ(show(), nullptr) << "no readable rough image";
    setBase(qxMapLayerSmooth, "missing.tga");
    EXPECT_EQ(show(), nullptr) << "no readable image at all";
    setBase(qxMapLayerSmooth, "a.tga");
    setBase(qxMapLayerRough, "a.tga");
    EXPECT_NE(show(), nullptr);
}

// Each flag governs its own item: the picture changes exactly with the items that were invalidated, whatever
// else was given anew.
TEST_F(TexturePreview, OnlyInvalidatedItemsAreMadeAnew) {
    writeImage("one.tga", 16, 16, 1);
    writeImage("two.tga", 16, 16, 2);
    setBase(qxMapLayerSmooth, "one.tga");
    setBase(qxMapLayerRough, "two.tga");
    const CTexturePreview::Definition other{{1, 2, 3, 255}, {200, 0, 90, 255}, 0.9F, 0.05F};

    const auto pixelsAfter = [&](std::initializer_list<Item> invalidated, bool swapTints, bool swapBlend,
                                 bool swapSmooth, bool swapRough) {
        setBase(qxMapLayerSmooth, "one.tga");
        setBase(qxMapLayerRough, "two.tga");
        m_pPreview->invalidateAll();
        m_pPreview->showDefinition(m_definition, m_map);
        // From here on everything is different, but only the invalidated items may notice.
        setBase(qxMapLayerSmooth, "two.tga");
        setBase(qxMapLayerRough, "one.tga");
        for (const Item item : invalidated) {
            m_pPreview->invalidate(item);
        }
        const qxCImageFile* shown = m_pPreview->showDefinition(other, m_map);
        CTexturePreview::Definition expected = m_definition;
        if (swapTints) {
            expected.tint1 = other.tint1;
            expected.tint2 = other.tint2;
        }
        if (swapBlend) {
            expected.blend = other.blend;
            expected.variation = other.variation;
        }
        qxCImageFile smooth;
        qxCImageFile rough;
        smooth.load(swapSmooth ? "two.tga" : "one.tga", false);
        rough.load(swapRough ? "one.tga" : "two.tga", false);
        const CSlowReference reference(expected);
        for (int i = 0; i < 256; ++i) {
            if (shown->getPixel(i % 16, i / 16) != reference.pixelAt(smooth, rough, i % 16, i / 16)) {
                return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(pixelsAfter({}, false, false, false, false));
    EXPECT_TRUE(pixelsAfter({Item::COMPOSITE}, false, false, false, false));
    EXPECT_TRUE(pixelsAfter({Item::TINT_MAP, Item::COMPOSITE}, true, false, false, false));
    EXPECT_TRUE(pixelsAfter({Item::BLEND_MAP, Item::COMPOSITE}, false, true, false, false));
    EXPECT_TRUE(pixelsAfter({Item::SMOOTH_IMAGE, Item::COMPOSITE}, false, false, true, false));
    EXPECT_TRUE(pixelsAfter({Item::ROUGH_IMAGE, Item::COMPOSITE}, false, false, false, true));
    EXPECT_TRUE(pixelsAfter({Item::TINT_MAP, Item::BLEND_MAP}, false, false, false, false))
        << "the composite was not asked for";
}

TEST_F(TexturePreview, ADetailTakesTheComposite) {
    writeImage("base.tga", 16, 16, 1);
    writeImage("tree.tga", 4, 8, 3);
    setBase(qxMapLayerSmooth, "base.tga");
    setBase(qxMapLayerRough, "base.tga");
    m_pPreview->showDefinition(m_definition, m_map);
    EXPECT_EQ(m_pPreview->showDetail(nullptr), nullptr);
    qxCTexture tree;
    tree.setFilename("tree.tga");
    const qxCImageFile* detail = m_pPreview->showDetail(&tree);
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(std::pair(detail->width, detail->height), std::pair(4, 8));
    const qxCImageFile* back = m_pPreview->showDefinition(m_definition, m_map);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(std::pair(back->width, back->height), std::pair(16, 16));
}

TEST_F(TexturePreview, HarmlessWithValuesThatAreNoNumbers) {
    writeImage("base.tga", 8, 8, 1);
    setBase(qxMapLayerSmooth, "base.tga");
    setBase(qxMapLayerRough, "base.tga");
    m_definition.blend = std::numeric_limits<float>::quiet_NaN();
    m_definition.variation = std::numeric_limits<float>::infinity();
    EXPECT_NE(m_pPreview->showDefinition(m_definition, m_map), nullptr);
}

} // namespace
