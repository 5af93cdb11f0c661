#pragma once

#include "engine/qx_api.h"

#include <cstdint>
#include <span>

/// A colour of four channels, 0 to 255 each. In memory the bytes are blue, green, red, alpha in ascending
/// address order, so that the four bytes read as a little-endian integer are 0xAARRGGBB.
class qxCColour {
public:
    std::uint8_t b = 0;
    std::uint8_t g = 0;
    std::uint8_t r = 0;
    std::uint8_t a = 0;

    /// Transparent black.
    constexpr qxCColour() = default;

    /// Channels 0 to 255; only the low eight bits of each are kept.
    constexpr qxCColour(int red, int green, int blue, int alpha)
        : b(static_cast<std::uint8_t>(blue))
        , g(static_cast<std::uint8_t>(green))
        , r(static_cast<std::uint8_t>(red))
        , a(static_cast<std::uint8_t>(alpha)) {}

    friend constexpr bool operator==(const qxCColour&, const qxCColour&) = default;
};
static_assert(sizeof(qxCColour) == 4);

/// Channel-wise mix of two colours, alpha included: `from` at t = 0, `to` at t = 1. Each channel is rounded
/// to a whole level towards `to`. `t` is 0.0 to 1.0.
QX_API qxCColour interpolate(const qxCColour& from, const qxCColour& to, float t);

/// A texture colour seen through a tint: each of red, green and blue is multiplied by the tint's channel over
/// 255; alpha stays the texture's own. White leaves a colour as it is, black makes it black. The ground is
/// drawn with the same product, so that a preview made with this function matches it.
QX_API qxCColour tint(const qxCColour& colour, const qxCColour& tintColour);

/// The same two functions for a row of pixels at a time, pixel by pixel the same colours. All spans of one
/// call have the same length; `out` may be a row that is read.
struct qxColourRows {
    /// out[i] = interpolate(from[i], to[i], t[i])
    void (*interpolate)(std::span<const qxCColour> from, std::span<const qxCColour> to,
                        std::span<const float> t, std::span<qxCColour> out);
    /// out[i] = interpolate(from, to, t[i])
    void (*ramp)(const qxCColour& from, const qxCColour& to, std::span<const float> t,
                 std::span<qxCColour> out);
    /// out[i] = tint(colours[i], tints[i])
    void (*tint)(std::span<const qxCColour> colours, std::span<const qxCColour> tints,
                 std::span<qxCColour> out);
};

/// The engine's, for work on whole images. An engine need not have it: its address is null then.
[[gnu::weak]] QX_API const qxColourRows& qxGetColourRows();
