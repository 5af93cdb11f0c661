#include "terrain/texture_preview.h"

#include "engine/memory/engine_directories.h"
#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"
#include "support/temp_directory.h"
#include "support/tga_bytes.h"

#include <gtest/gtest.h>

#include <string>

// An engine with arithmetic of its own stands before ours in this program.

qxCColour interpolate(const qxCColour& from, const qxCColour& /*to*/, float /*t*/) {
    return {from.r / 2, from.g, from.b, from.a};
}

qxCColour tint(const qxCColour& colour, const qxCColour& tintColour) {
    return {tintColour.r, colour.r, 7, 9};
}

TEST(OtherEngine, ThePreviewShowsItsColours) {
    const CTempDirectory folder;
    CEngineDirectories::setDirectories({folder.path()});
    folder.write("grey.tga", makeTga(16, 16, 8, std::string(256, 'd')));
    CMemoryScene scene;
    CMemoryMap map(4, &scene);
    qxCTexture* const texture = scene.createTexture();
    texture->setFilename("grey.tga");
    map.setTexture(qxMapLayerSmooth, texture);
    map.setTexture(qxMapLayerRough, texture);
    CTexturePreview preview;
    const qxCImageFile* const shown =
        preview.showDefinition({{160, 2, 3, 255}, {1, 2, 3, 255}, 0.5F, 0.5F}, map);
    ASSERT_NE(shown, nullptr);
    // The tint of a texel is mixed three times: from a node, between rows and between columns.
    EXPECT_EQ(shown->getPixel(15, 9), qxCColour(160 / 8, 'd' / 2, 7, 9));
    CEngineDirectories::setDirectories({});
}
