#include "terrain/texture_preview.h"

#include "engine/qx_map.h"
#include "engine/qx_surface_recipe.h"
#include "engine/qx_texture.h"

#include <algorithm>
#include <span>
#include <utility>

namespace {

constexpr int EDGE = CTexturePreview::MAP_EDGE;
static_assert(EDGE == qx_surface::EDGE);

void interpolateOneByOne(std::span<const qxCColour> from, std::span<const qxCColour> to,
                         std::span<const float> t, std::span<qxCColour> out) {
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = interpolate(from[i], to[i], t[i]);
    }
}

void rampOneByOne(const qxCColour& from, const qxCColour& to, std::span<const float> t,
                  std::span<qxCColour> out) {
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = interpolate(from, to, t[i]);
    }
}

void tintOneByOne(std::span<const qxCColour> colours, std::span<const qxCColour> tints,
                  std::span<qxCColour> out) {
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = tint(colours[i], tints[i]);
    }
}

constexpr qxColourRows ONE_BY_ONE = {interpolateOneByOne, rampOneByOne, tintOneByOne};

/// Every level of every channel in turn, against one that runs another way.
std::array<qxCColour, 256> makeTrial(int stride) {
    std::array<qxCColour, 256> colours;
    for (int i = 0; i < 256; ++i) {
        colours[static_cast<std::size_t>(i)] = {i * stride, i * stride + 85, 255 - i * stride, i};
    }
    return colours;
}

/// The rows' functions give what the engine gives for single colours.
bool agrees(const qxColourRows& rows) {
    const auto from = makeTrial(1);
    const auto to = makeTrial(37);
    std::array<float, 256> shares;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        shares[i] = static_cast<float>(i * 89 % 256) / 255.0F;
    }
    const auto tried = [&](const qxColourRows& by) {
        std::array<qxCColour, 3 * 256> out;
        const std::span<qxCColour> whole(out);
        by.interpolate(from, to, shares, whole.first<256>());
        by.ramp(from[40], to[40], shares, whole.subspan<256, 256>());
        by.tint(from, to, whole.last<256>());
        return out;
    };
    return tried(rows) == tried(ONE_BY_ONE);
}

/// What the terrain shows is what the engine's functions for one colour say. Its functions for rows save the
/// calls, where it has them and they say the same: a host may have replaced the others alone.
const qxColourRows& colourRows() {
    static const bool s_useRows = qxGetColourRows != nullptr && agrees(qxGetColourRows());
    return s_useRows ? qxGetColourRows() : ONE_BY_ONE;
}

/// Fractions of the way from one node to the next.
constexpr auto FRACTIONS = [] {
    std::array<float, qx_surface::SPACING> fractions{};
    for (int step = 0; step < qx_surface::SPACING; ++step) {
        fractions[static_cast<std::size_t>(step)] = qx_surface::fractionOf(step);
    }
    return fractions;
}();

void ramp(const qxCColour& from, const qxCColour& to, std::span<qxCColour> out) {
    colourRows().ramp(from, to, FRACTIONS, out);
}

void ramp(float from, float to, std::span<float> out) {
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = qx_surface::mix(from, to, FRACTIONS[i]);
    }
}

/// Bilinear between the nodes. Within one row the ends of a cell's span do not change, so each row mixes its
/// nine columns once and then only along x.
template <class Value> void fillBetweenNodes(const qx_surface::NodeGrid<Value>& nodes, std::span<Value> map) {
    constexpr auto SPACING = static_cast<std::size_t>(qx_surface::SPACING);
    for (int y = 0; y < EDGE; ++y) {
        std::array<Value, qx_surface::NODES> ends;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            ends[i] = qx_surface::mixColumn(nodes, i, y);
        }
        for (std::size_t cell = 0; cell + 1 < ends.size(); ++cell) {
            ramp(ends[cell], ends[cell + 1], map.first(SPACING));
            map = map.subspan(SPACING);
        }
    }
}

void copyBaseImage(const qxCTexture* texture, qxCImageFile& copy) {
    if (texture == nullptr) {
        return;
    }
    qxCImageFile loaded;
    loaded.load(texture->getFilename(), false);
    copy.setSize(loaded.width, loaded.height, qxImageFileFormatColourAlpha);
    std::ranges::copy(std::as_const(loaded).getPixels(), copy.getPixels().begin());
}

} // namespace

CTexturePreview::CTexturePreview() = default;

const qxCImageFile* CTexturePreview::showDefinition(const Definition& definition, const qxCMap& map) {
    const qxCTexture* smooth = map.getTexture(qxMapLayerSmooth);
    const qxCTexture* rough = map.getTexture(qxMapLayerRough);
    const auto makeIfNeeded = [this](Item item, const auto& make) {
        if (!m_ready[item]) {
            make();
            m_ready[item] = true;
        }
    };
    makeIfNeeded(TINT_MAP, [&] { makeTintMap(definition.tint1, definition.tint2); });
    makeIfNeeded(BLEND_MAP, [&] { makeBlendMap(definition.blend, definition.variation); });
    makeIfNeeded(SMOOTH_IMAGE, [&] { copyBaseImage(smooth, m_smoothImage); });
    makeIfNeeded(ROUGH_IMAGE, [&] { copyBaseImage(rough, m_roughImage); });
    makeIfNeeded(COMPOSITE, [&] {
        m_bHasComposite = smooth != nullptr && rough != nullptr && m_smoothImage.width > 0 &&
                          m_smoothImage.width == m_roughImage.width &&
                          m_smoothImage.height == m_roughImage.height;
        if (m_bHasComposite) {
            makeComposite();
        }
    });
    return m_bHasComposite ? &m_composite : nullptr;
}

const qxCImageFile* CTexturePreview::showDetail(const qxCTexture* texture) {
    invalidate(COMPOSITE);
    if (texture == nullptr) {
        return nullptr;
    }
    m_composite.load(texture->getFilename(), false);
    return &m_composite;
}

void CTexturePreview::makeTintMap(const qxCColour& tint1, const qxCColour& tint2) {
    m_tintMap.resize(MAP_SIZE);
    fillBetweenNodes<qxCColour>(qx_surface::makeTintNodes(tint1, tint2), m_tintMap);
}

void CTexturePreview::makeBlendMap(float blend, float variation) {
    m_blendMap.resize(MAP_SIZE);
    fillBetweenNodes<float>(qx_surface::makeBlendNodes(blend, variation), m_blendMap);
}

void CTexturePreview::makeComposite() {
    if (m_composite.width != m_smoothImage.width || m_composite.height != m_smoothImage.height) {
        m_composite.setSize(m_smoothImage.width, m_smoothImage.height, qxImageFileFormatColourAlpha);
    }
    for (int y = 0; y < m_composite.height; ++y) {
        compositeRow(y);
    }
}

void CTexturePreview::compositeRow(int y) {
    const auto width = static_cast<std::size_t>(m_composite.width);
    const std::size_t mapRow = static_cast<std::size_t>(y % EDGE) * EDGE;
    for (std::size_t x = 0; x < width; x += EDGE) {
        const std::size_t at = static_cast<std::size_t>(y) * width + x;
        const std::size_t count = std::min<std::size_t>(EDGE, width - x);
        const std::span<qxCColour> out = m_composite.getPixels().subspan(at, count);
        colourRows().interpolate(std::as_const(m_smoothImage).getPixels().subspan(at, count),
                                 std::as_const(m_roughImage).getPixels().subspan(at, count),
                                 std::span(m_blendMap).subspan(mapRow, count), out);
        colourRows().tint(out, std::span(m_tintMap).subspan(mapRow, count), out);
    }
}
