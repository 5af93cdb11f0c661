#pragma once

/// The rows of a film strip from top to bottom, in pixels.
namespace striprows {

inline constexpr int RULER = 20;
inline constexpr int KEYFRAMES = 10;
inline constexpr int SOUNDS = 42;
inline constexpr int KEYFRAMES_TOP = RULER;
inline constexpr int SOUNDS_TOP = RULER + KEYFRAMES;
inline constexpr int HEIGHT = RULER + KEYFRAMES + SOUNDS;
inline constexpr int MARKER = 8; // a marker's width, in the ruler

} // namespace striprows
