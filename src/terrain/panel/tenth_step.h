#pragma once

/// One step of a spin over a share of 0 to 1: a tenth up when `delta` is negative (the up arrow), else a
/// tenth down, rounded to whole tenths (halves away from zero) and held to 0..1.
float tenthStep(float value, int delta);
