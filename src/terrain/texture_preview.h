#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_image_file.h"

#include <array>
#include <cstddef>
#include <vector>

class qxCMap;
class qxCTexture;

/// Makes the picture of a texture definition: the map's two base images mixed by a random blend map and
/// tinted by a random tint map, both of fixed seeds, so that a definition always shows the same pattern. The
/// panel owns one for its whole life; what did not change since the last picture is not made again. Knows no
/// window.
class CTexturePreview {
public:
    /// Edge of the tint and blend maps, in pixels. A larger base image repeats the maps.
    static constexpr int MAP_EDGE = 256;
    static constexpr std::size_t MAP_SIZE = std::size_t{MAP_EDGE} * MAP_EDGE;

    /// What is kept between pictures, each with a ready flag.
    enum Item { TINT_MAP, BLEND_MAP, SMOOTH_IMAGE, ROUGH_IMAGE, COMPOSITE, ITEM_COUNT };

    /// What a definition's picture is made from.
    struct Definition {
        qxCColour tint1;
        qxCColour tint2;
        float blend = 0.0F;     ///< 0.0 all smooth image, 1.0 all rough image
        float variation = 0.0F; ///< spread of the blend to either side
    };

    CTexturePreview();

    /// Have this item made anew by the next picture.
    void invalidate(Item item) { m_ready[item] = false; }
    void invalidateAll() { m_ready.fill(false); }

    /// The picture of `definition` on the base textures of `map`, after making every item that is not ready.
    /// Null, for nothing to show, when a base texture is missing, has no readable image, or the two images
    /// differ in size. Valid until the next call.
    const qxCImageFile* showDefinition(const Definition& definition, const qxCMap& map);

    /// The image of a detail texture, null without a texture. Leaves the composite to be made anew.
    const qxCImageFile* showDetail(const qxCTexture* texture);

private:
    void makeTintMap(const qxCColour& tint1, const qxCColour& tint2);
    void makeBlendMap(float blend, float variation);
    void makeComposite();
    void compositeRow(int y);

    std::array<bool, ITEM_COUNT> m_ready = {};
    bool m_bHasComposite = false; ///< the composite made last is a picture to show
    // Row y, column x; made with the first picture, as half a megabyte would slow the opening of every panel.
    std::vector<qxCColour> m_tintMap;
    std::vector<float> m_blendMap;
    qxCImageFile m_smoothImage;
    qxCImageFile m_roughImage;
    qxCImageFile m_composite;
};
