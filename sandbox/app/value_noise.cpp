#include "sandbox/app/value_noise.h"

#include <cmath>
#include <cstdint>

namespace {

/// A number in 0 to 1 that looks drawn by lot, for each corner of a lattice and each size of it.
float cornerValue(int x, int z, int size) {
    auto bits = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^ static_cast<std::uint32_t>(z) * 0x85EBCA77U ^
                static_cast<std::uint32_t>(size) * 0xC2B2AE3DU;
    bits = (bits ^ (bits >> 15)) * 0x2C1B3C6DU;
    bits = (bits ^ (bits >> 12)) * 0x297A2D39U;
    constexpr float LARGEST = 16777215.0F;
    return static_cast<float>((bits ^ (bits >> 15)) & 0xFFFFFFU) / LARGEST;
}

} // namespace

CValueNoise::CValueNoise(int size) {
    const int corners = PERIOD / size;
    const auto corner = [=](int x, int z) { return cornerValue(x % corners, z % corners, size); };
    m_values.reserve(static_cast<std::size_t>(PERIOD) * PERIOD);
    for (int z = 0; z < PERIOD; ++z) {
        const int row = z / size;
        const float v = smoothstep(0.0F, 1.0F, static_cast<float>(z % size) / static_cast<float>(size));
        for (int x = 0; x < PERIOD; ++x) {
            const int column = x / size;
            const float u = smoothstep(0.0F, 1.0F, static_cast<float>(x % size) / static_cast<float>(size));
            const float above = std::lerp(corner(column, row), corner(column + 1, row), u);
            const float below = std::lerp(corner(column, row + 1), corner(column + 1, row + 1), u);
            m_values.push_back(std::lerp(above, below, v));
        }
    }
}
