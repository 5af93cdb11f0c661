#pragma once

#include <cstdint>

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

namespace qx_detail {

constexpr std::uint8_t mixChannel(std::uint8_t from, std::uint8_t to, float t) {
    // The bias rounds an increase up; truncation already rounds a decrease down. A mix that is applied again
    // and again therefore always reaches its target instead of stalling a few levels short of it.
    const float bias = to > from ? 0.999F : 0.0F;
    const float start = from;
    return static_cast<std::uint8_t>(static_cast<int>(start + (static_cast<float>(to) - start) * t + bias));
}

constexpr std::uint8_t multiplyChannel(std::uint8_t x, std::uint8_t y) {
    return static_cast<std::uint8_t>(x * y / 255);
}

} // namespace qx_detail

/// Channel-wise mix of two colours, alpha included: `from` at t = 0, `to` at t = 1. Each channel is rounded
/// to a whole level towards `to`. `t` is 0.0 to 1.0.
constexpr qxCColour interpolate(const qxCColour& from, const qxCColour& to, float t) {
    qxCColour mixed;
    mixed.b = qx_detail::mixChannel(from.b, to.b, t);
    mixed.g = qx_detail::mixChannel(from.g, to.g, t);
    mixed.r = qx_detail::mixChannel(from.r, to.r, t);
    mixed.a = qx_detail::mixChannel(from.a, to.a, t);
    return mixed;
}

/// A texture colour seen through a tint: each of red, green and blue is multiplied by the tint's channel over
/// 255; alpha stays the texture's own. White leaves a colour as it is, black makes it black. The ground is
/// drawn with the same product, so that a preview made with this function matches it.
constexpr qxCColour tint(const qxCColour& colour, const qxCColour& tintColour) {
    qxCColour tinted;
    tinted.b = qx_detail::multiplyChannel(colour.b, tintColour.b);
    tinted.g = qx_detail::multiplyChannel(colour.g, tintColour.g);
    tinted.r = qx_detail::multiplyChannel(colour.r, tintColour.r);
    tinted.a = colour.a;
    return tinted;
}
