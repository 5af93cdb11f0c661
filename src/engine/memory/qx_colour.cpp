#include "engine/qx_colour.h"

#include <array>
#include <cstddef>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace {

using Colours = std::span<const qxCColour>;

constexpr float ROUND_UP = 0.999F;

inline std::uint8_t mixChannel(std::uint8_t from, std::uint8_t to, float t) {
    // The bias rounds an increase up; truncation already rounds a decrease down. A mix that is applied again
    // and again therefore always reaches its target instead of stalling a few levels short of it.
    const float bias = to > from ? ROUND_UP : 0.0F;
    const float start = from;
    return static_cast<std::uint8_t>(static_cast<int>(start + static_cast<float>(to - from) * t + bias));
}

inline std::uint8_t multiplyChannel(std::uint8_t x, std::uint8_t y) {
    return static_cast<std::uint8_t>(x * y / 255);
}

// What a machine with 32-byte vectors takes together; all return how many pixels they mixed.
std::size_t mixWide(Colours from, Colours to, std::span<const float> t, std::span<qxCColour> out);
std::size_t rampWide(const qxCColour& from, const qxCColour& to, std::span<const float> t,
                     std::span<qxCColour> out);

std::size_t tintWide(Colours colours, Colours tints, std::span<qxCColour> out);

void interpolateRow(Colours from, Colours to, std::span<const float> t, std::span<qxCColour> out) {
    for (std::size_t i = mixWide(from, to, t, out); i < out.size(); ++i) {
        out[i] = interpolate(from[i], to[i], t[i]);
    }
}

void rampRow(const qxCColour& from, const qxCColour& to, std::span<const float> t, std::span<qxCColour> out) {
    for (std::size_t i = rampWide(from, to, t, out); i < out.size(); ++i) {
        out[i] = interpolate(from, to, t[i]);
    }
}

void tintRow(Colours colours, Colours tints, std::span<qxCColour> out) {
    for (std::size_t i = tintWide(colours, tints, out); i < out.size(); ++i) {
        out[i] = tint(colours[i], tints[i]);
    }
}

#if defined(__x86_64__)
#define QX_WIDE [[gnu::target("avx2")]]

constexpr std::size_t AT_ONCE = 8;

/// The ends of two pixels' mixes, channel by channel.
struct WideEnds {
    __m256 start;
    __m256 change;
    __m256 roundUp;
};

/// Eight pixels, mixed, as ints.
struct WideMix {
    static constexpr std::size_t PAIRS = AT_ONCE / 2;
    __m256i two[PAIRS];
};

QX_WIDE inline void load(WideEnds& ends, const qxCColour* from, const qxCColour* to) {
    const __m256i start = _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from)));
    const __m256i end = _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(to)));
    ends.start = _mm256_cvtepi32_ps(start);
    ends.change = _mm256_cvtepi32_ps(_mm256_sub_epi32(end, start));
    ends.roundUp =
        _mm256_and_ps(_mm256_castsi256_ps(_mm256_cmpgt_epi32(end, start)), _mm256_set1_ps(ROUND_UP));
}

/// Two pixels, each channel as mixChannel does it: the same operations in the same order.
QX_WIDE inline void mixTwo(const WideEnds& ends, const float* t, __m256i& mixed) {
    const __m256 share = _mm256_set_m128(_mm_broadcast_ss(t + 1), _mm_broadcast_ss(t));
    const __m256 exact = _mm256_add_ps(ends.start, _mm256_mul_ps(ends.change, share));
    mixed = _mm256_cvttps_epi32(_mm256_add_ps(exact, ends.roundUp));
}

QX_WIDE inline void store(const WideMix& mixed, qxCColour* out) {
    const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7); // packing works within halves
    const __m256i bytes = _mm256_packus_epi16(_mm256_packs_epi32(mixed.two[0], mixed.two[1]),
                                              _mm256_packs_epi32(mixed.two[2], mixed.two[3]));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_permutevar8x32_epi32(bytes, order));
}

QX_WIDE std::size_t mixEights(Colours from, Colours to, std::span<const float> t, std::span<qxCColour> out) {
    std::size_t i = 0;
    for (; i + AT_ONCE <= out.size(); i += AT_ONCE) {
        WideMix mixed;
        for (std::size_t pair = 0; pair < WideMix::PAIRS; ++pair) {
            WideEnds ends;
            load(ends, &from[i + 2 * pair], &to[i + 2 * pair]);
            mixTwo(ends, &t[i + 2 * pair], mixed.two[pair]);
        }
        store(mixed, &out[i]);
    }
    return i;
}

QX_WIDE std::size_t rampEights(const qxCColour& from, const qxCColour& to, std::span<const float> t,
                               std::span<qxCColour> out) {
    const std::array<qxCColour, 2> starts = {from, from};
    const std::array<qxCColour, 2> ends = {to, to};
    WideEnds wide;
    load(wide, starts.data(), ends.data());
    std::size_t i = 0;
    for (; i + AT_ONCE <= out.size(); i += AT_ONCE) {
        WideMix mixed;
        for (std::size_t pair = 0; pair < WideMix::PAIRS; ++pair) {
            mixTwo(wide, &t[i + 2 * pair], mixed.two[pair]);
        }
        store(mixed, &out[i]);
    }
    return i;
}

/// 16 channels: each product over 255, truncated.
QX_WIDE inline void multiply(__m256i& colours, const __m256i& tints) {
    const __m256i product = _mm256_mullo_epi16(colours, tints);
    colours =
        _mm256_srli_epi16(_mm256_mulhi_epu16(product, _mm256_set1_epi16(static_cast<short>(0x8081))), 7);
}

QX_WIDE std::size_t tintEights(Colours colours, Colours tints, std::span<qxCColour> out) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i opaque = _mm256_set1_epi32(static_cast<int>(0xFF000000U)); // leaves the alpha as it is
    std::size_t i = 0;
    for (; i + AT_ONCE <= out.size(); i += AT_ONCE) {
        const __m256i eight = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(&colours[i]));
        const __m256i by =
            _mm256_or_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(&tints[i])), opaque);
        __m256i low = _mm256_unpacklo_epi8(eight, zero);
        __m256i high = _mm256_unpackhi_epi8(eight, zero);
        multiply(low, _mm256_unpacklo_epi8(by, zero));
        multiply(high, _mm256_unpackhi_epi8(by, zero));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(&out[i]), _mm256_packus_epi16(low, high));
    }
    return i;
}

const bool g_hasWideVectors = __builtin_cpu_supports("avx2") != 0;

std::size_t mixWide(Colours from, Colours to, std::span<const float> t, std::span<qxCColour> out) {
    return g_hasWideVectors ? mixEights(from, to, t, out) : 0;
}

std::size_t rampWide(const qxCColour& from, const qxCColour& to, std::span<const float> t,
                     std::span<qxCColour> out) {
    return g_hasWideVectors ? rampEights(from, to, t, out) : 0;
}

std::size_t tintWide(Colours colours, Colours tints, std::span<qxCColour> out) {
    return g_hasWideVectors ? tintEights(colours, tints, out) : 0;
}

#else

std::size_t mixWide(Colours, Colours, std::span<const float>, std::span<qxCColour>) {
    return 0;
}
std::size_t rampWide(const qxCColour&, const qxCColour&, std::span<const float>, std::span<qxCColour>) {
    return 0;
}
std::size_t tintWide(Colours, Colours, std::span<qxCColour>) {
    return 0;
}

#endif

} // namespace

qxCColour interpolate(const qxCColour& from, const qxCColour& to, float t) {
    qxCColour mixed;
    mixed.b = mixChannel(from.b, to.b, t);
    mixed.g = mixChannel(from.g, to.g, t);
    mixed.r = mixChannel(from.r, to.r, t);
    mixed.a = mixChannel(from.a, to.a, t);
    return mixed;
}

qxCColour tint(const qxCColour& colour, const qxCColour& tintColour) {
    qxCColour tinted;
    tinted.b = multiplyChannel(colour.b, tintColour.b);
    tinted.g = multiplyChannel(colour.g, tintColour.g);
    tinted.r = multiplyChannel(colour.r, tintColour.r);
    tinted.a = colour.a;
    return tinted;
}

const qxColourRows& qxGetColourRows() {
    static constexpr qxColourRows ROWS = {interpolateRow, rampRow, tintRow};
    return ROWS;
}
