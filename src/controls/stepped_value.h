#pragma once

/// The steps of the spins, as the engine's numbers hold them: a tenth is the single-precision one.
inline constexpr float TENTH_STEP = 0.1F;
inline constexpr float WHOLE_STEP = 1.0F;

/// `value` and `step`, upwards or downwards, rounded to a whole multiple of the step with halves away from
/// zero. As the tenth of single precision is a little more than a tenth, what lies half-way between two
/// tenths rounds towards zero. Never minus zero.
float steppedValue(float value, float step);

/// One step of a spin over a share of 0 to 1: a tenth up when `delta` is negative (the up arrow), else a
/// tenth down, held to 0..1. The tenths are counted ten to the whole here: what lies half-way between two
/// rounds away from zero.
float steppedShare(float value, int delta);
