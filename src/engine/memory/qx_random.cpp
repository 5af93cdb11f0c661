#include "engine/qx_random.h"

qxCRandom::qxCRandom() = default;

void qxCRandom::setSeed(int seed) {
    m_engine.seed(static_cast<std::mt19937::result_type>(seed));
}

float qxCRandom::get(float max) {
    return get(0.0F, max);
}

float qxCRandom::get(float min, float max) {
    return min + (max - min) * fraction();
}

float qxCRandom::fraction() {
    constexpr auto UNUSED_BITS = 8U;
    constexpr float LARGEST = 16777215.0F;
    return static_cast<float>(m_engine() >> UNUSED_BITS) / LARGEST;
}
