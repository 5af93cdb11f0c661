#pragma once

#include <optional>

class qxCMovie;

/// The nearest keyframe before or after frame `from`. The search ends at the first index that has no frame,
/// so that it finds nothing from further outside than one frame.
std::optional<int> keyframeBefore(qxCMovie& movie, int from);
std::optional<int> keyframeAfter(qxCMovie& movie, int from);

/// An ease value a tenth lower or higher, held to 0..1; what is not a number becomes 0 or stays.
float easeStepDown(float value);
float easeStepUp(float value);
