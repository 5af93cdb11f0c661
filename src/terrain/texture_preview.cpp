#include "terrain/texture_preview.h"

#include "engine/qx_map.h"
#include "engine/qx_random.h"
#include "engine/qx_texture.h"

#include <algorithm>
#include <span>
#include <utility>

// The two pixel loops gain a factor of two from 32-byte vectors. They are compiled a second time for machines
// that have them and chosen at load; without fused multiply-add both give the same bytes. The sanitizers'
// runtimes start too late for such a choice.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define VESK_WIDE_VECTORS [[gnu::target_clones("avx2", "default")]]
#else
#define VESK_WIDE_VECTORS
#endif

namespace {

constexpr int EDGE = CTexturePreview::MAP_EDGE;
constexpr int NODE_SPACING = 32;
constexpr int CELLS = EDGE / NODE_SPACING;
constexpr int NODES = CELLS + 1;
constexpr int TINT_SEED = 123;
constexpr int BLEND_SEED = 345;

template <class Value> using NodeGrid = std::array<std::array<Value, NODES>, NODES>; // [column][row]

qxCColour mix(const qxCColour& from, const qxCColour& to, float t) {
    return interpolate(from, to, t);
}

float mix(float from, float to, float t) {
    return from + t * (to - from);
}

/// Fraction of the way from one node to the next.
float fractionOf(int position) {
    return static_cast<float>(position % NODE_SPACING) / static_cast<float>(NODE_SPACING);
}

/// Bilinear between the nodes. Within one row the ends of a cell's span do not change, so each row mixes its
/// nine columns once and then only along x.
template <class Value>
VESK_WIDE_VECTORS void fillBetweenNodes(const NodeGrid<Value>& nodes, std::span<Value> map) {
    for (int y = 0; y < EDGE; ++y) {
        const std::size_t nodeRow = static_cast<std::size_t>(y / NODE_SPACING);
        const float u = fractionOf(y);
        std::array<Value, NODES> ends;
        for (std::size_t i = 0; i < NODES; ++i) {
            ends[i] = mix(nodes[i][nodeRow], nodes[i][nodeRow + 1], u);
        }
        Value* row = &map[static_cast<std::size_t>(y) * EDGE];
        for (std::size_t cell = 0; cell < CELLS; ++cell) {
            for (int step = 0; step < NODE_SPACING; ++step) {
                *row++ = mix(ends[cell], ends[cell + 1], fractionOf(step));
            }
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

/// One row of the composite, channel by channel: `smooth` mixed to `rough` by `blend`, times `tint` over 255.
/// The same arithmetic as interpolate() and tint(), written over plain bytes so that it runs several channels
/// at a time. A tint's alpha is 255 here, which leaves the mixed alpha as it is.
VESK_WIDE_VECTORS void compositeBytes(const std::uint8_t* smooth, const std::uint8_t* rough,
                                      const float* blend, const std::uint8_t* tintBytes, std::uint8_t* out,
                                      int count) {
    for (int i = 0; i < count; ++i) {
        const std::uint8_t mixed = qx_detail::mixChannel(smooth[i], rough[i], blend[i]);
        out[i] = qx_detail::multiplyChannel(mixed, tintBytes[i]);
    }
}

const std::uint8_t* bytesOf(const qxCColour* colours) {
    return reinterpret_cast<const std::uint8_t*>(colours);
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
    qxCRandom random;
    random.setSeed(TINT_SEED);
    NodeGrid<qxCColour> nodes;
    for (auto& column : nodes) {
        for (qxCColour& node : column) {
            node = interpolate(tint1, tint2, random.get(1.0F));
            node.a = 255; // a tint's alpha plays no part
        }
    }
    m_tintMap.resize(MAP_SIZE);
    fillBetweenNodes<qxCColour>(nodes, m_tintMap);
}

void CTexturePreview::makeBlendMap(float blend, float variation) {
    qxCRandom random;
    random.setSeed(BLEND_SEED);
    NodeGrid<float> nodes;
    for (auto& column : nodes) {
        for (float& node : column) {
            const float value = blend + random.get(-variation, variation);
            node = value > 0.0F ? std::min(value, 1.0F) : 0.0F; // what is no number counts as 0
        }
    }
    m_blendMap.resize(MAP_SIZE);
    fillBetweenNodes<float>(nodes, m_blendMap);
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
    constexpr int CHANNELS = 4;
    const std::size_t mapRow = static_cast<std::size_t>(y % EDGE) * EDGE;
    const std::size_t imageRow = static_cast<std::size_t>(y) * static_cast<std::size_t>(m_composite.width);
    std::array<float, static_cast<std::size_t>(EDGE) * CHANNELS> blends;
    for (std::size_t x = 0; x < EDGE; ++x) {
        std::fill_n(&blends[x * CHANNELS], CHANNELS, m_blendMap[mapRow + x]);
    }
    for (int x = 0; x < m_composite.width; x += EDGE) {
        const std::size_t at = imageRow + static_cast<std::size_t>(x);
        const int pixels = std::min(EDGE, m_composite.width - x);
        compositeBytes(bytesOf(&std::as_const(m_smoothImage).getPixels()[at]),
                       bytesOf(&std::as_const(m_roughImage).getPixels()[at]), blends.data(),
                       bytesOf(&m_tintMap[mapRow]),
                       reinterpret_cast<std::uint8_t*>(&m_composite.getPixels()[at]), pixels * CHANNELS);
    }
}
