#include "terrain/texture_preview.h"

#include "engine/memory/engine_directories.h"
#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"
#include "support/surface_recipe.h"
#include "support/temp_directory.h"
#include "support/tga_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

using Item = CTexturePreview::Item;

CSurfaceRecipe recipeOf(const CTexturePreview::Definition& d) {
    return {d.tint1, d.tint2, d.blend, d.variation};
}

/// The picture's formulas, one pixel at a time.
qxCColour pixelAt(const CSurfaceRecipe& recipe, const qxCImageFile& smooth, const qxCImageFile& rough, int x,
                  int y) {
    return tint(interpolate(smooth.getPixel(x, y), rough.getPixel(x, y), recipe.blendAt(x % 256, y % 256)),
                recipe.tintAt(x % 256, y % 256));
}

class TexturePreview : public testing::Test {
protected:
    void SetUp() override { CEngineDirectories::setDirectories({m_folder.path()}); }
    void TearDown() override { CEngineDirectories::setDirectories({}); }

    /// A true-colour image with alpha whose pixels all differ.
    void writeImage(const char* name, int width, int height, unsigned seed) {
        std::string pixels(static_cast<std::size_t>(width * height * 4), ' ');
        std::mt19937 noise(seed);
        std::ranges::generate(pixels, [&] { return static_cast<char>(noise()); });
        m_folder.write(name, makeTga(width, height, 32, pixels, 0x28));
    }

    void setBase(qxMapLayerType layer, const char* name) {
        qxCTexture* const texture = name != nullptr ? m_scene.createTexture() : nullptr;
        if (texture != nullptr) {
            texture->setFilename(name);
        }
        m_map.setTexture(layer, texture);
    }

    CTempDirectory m_folder;
    CMemoryScene m_scene;
    CMemoryMap m_map{16, &m_scene};
    std::unique_ptr<CTexturePreview> m_pPreview = std::make_unique<CTexturePreview>();
    CTexturePreview::Definition m_definition{{250, 120, 30, 255}, {20, 200, 140, 255}, 0.45F, 0.4F};
};

TEST_F(TexturePreview, EveryPixelIsWhatTheFormulasGive) {
    const std::pair<int, int> sizes[] = {{256, 256}, {64, 256}, {1, 1}, {300, 520}};
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
        const CSurfaceRecipe recipe = recipeOf(m_definition);
        int wrong = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                wrong += shown->getPixel(x, y) == pixelAt(recipe, smooth, rough, x, y) ? 0 : 1;
            }
        }
        EXPECT_EQ(wrong, 0) << width << " x " << height;
    }
}

// Each flag governs its own item: the picture changes exactly with the items that were invalidated, whatever
// else was given anew.
TEST_F(TexturePreview, OnlyInvalidatedItemsAreMadeAnew) {
    writeImage("one.tga", 16, 16, 1);
    writeImage("two.tga", 16, 16, 2);
    setBase(qxMapLayerSmooth, "one.tga");
    setBase(qxMapLayerRough, "two.tga");
    const CTexturePreview::Definition other{{1, 2, 3, 255}, {200, 0, 90, 255}, 0.9F, 0.05F};

    qxCImageFile one;
    qxCImageFile two;
    ASSERT_TRUE(one.load("one.tga", false) && two.load("two.tga", false));
    for (unsigned items = 0; items < 1U << CTexturePreview::ITEM_COUNT; ++items) {
        setBase(qxMapLayerSmooth, "one.tga");
        setBase(qxMapLayerRough, "two.tga");
        m_pPreview->invalidateAll();
        m_pPreview->showDefinition(m_definition, m_map);
        // From here on everything is different, but only the invalidated items may notice.
        setBase(qxMapLayerSmooth, "two.tga");
        setBase(qxMapLayerRough, "one.tga");
        const auto isNew = [items](Item item) { return (items >> item & 1) != 0; };
        for (int item = 0; item < CTexturePreview::ITEM_COUNT; ++item) {
            if (isNew(static_cast<Item>(item))) {
                m_pPreview->invalidate(static_cast<Item>(item));
            }
        }
        const qxCImageFile* shown = m_pPreview->showDefinition(other, m_map);
        const bool isMade = isNew(Item::COMPOSITE);
        const auto& tints = isMade && isNew(Item::TINT_MAP) ? other : m_definition;
        const auto& blends = isMade && isNew(Item::BLEND_MAP) ? other : m_definition;
        const CTexturePreview::Definition expected{tints.tint1, tints.tint2, blends.blend, blends.variation};
        const qxCImageFile& smooth = isMade && isNew(Item::SMOOTH_IMAGE) ? two : one;
        const qxCImageFile& rough = isMade && isNew(Item::ROUGH_IMAGE) ? one : two;
        for (const auto& [x, y] : {std::pair{0, 0}, {7, 9}, {15, 15}}) {
            EXPECT_EQ(shown->getPixel(x, y), pixelAt(recipeOf(expected), smooth, rough, x, y))
                << "items " << items;
        }
    }
}

} // namespace
