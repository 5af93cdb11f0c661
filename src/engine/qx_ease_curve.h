#pragma once

/// The curve of an ease value, as it is drawn in a panel and as the movie runs: progress 0 to 1 at the share
/// `t` of the way, both 0 to 1. A value of 0.5 is straight, a smaller one starts slowly, a larger one fast
/// (the rational bias curve of C. Schlick, "Fast Alternatives to Perlin's Bias and Gain Functions", Graphics
/// Gems IV, 1994). It is not a number where the curve is a step: for the value 1 at t = 0 and for the value 0
/// at t = 1.
constexpr float qxEaseCurve(float value, float t) {
    return (value * t) / ((1.0F - 2.0F * value) * (1.0F - t) + value);
}
