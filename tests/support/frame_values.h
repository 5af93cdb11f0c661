#pragma once

#include "engine/memory/movie/memory_movie.h"

#include <random>
#include <string>
#include <tuple>
#include <vector>

/// What a person or the engine can tell of a frame, all of it.
inline auto valuesOf(const qxCMovieFrame& f) {
    const auto numbers =
        std::tuple(f.translation.x, f.translation.y, f.translation.z, f.rotation.x, f.rotation.y,
                   f.rotation.z, f.fov, f.shake, f.easeIn, f.easeOut, f.fadeLevel);
    const auto colour = std::tuple(f.fadeColour.r, f.fadeColour.g, f.fadeColour.b, f.fadeColour.a);
    return std::tuple(numbers, colour, f.camera, f.cameraMode, f.frameMode, f.fadeMode, f.keyframe,
                      std::string(f.targetName.getString()), std::string(f.animTrigger));
}

inline auto valuesOf(CMemoryMovie& movie) {
    std::vector<decltype(valuesOf(*movie.getFrame(0)))> values;
    for (int i = 0; i < movie.getNumFrames(); ++i) {
        values.push_back(valuesOf(*movie.getFrame(i)));
    }
    return values;
}

/// Random values of every field in every frame; one in ten is a keyframe.
inline void fillRandomly(CMemoryMovie& movie, std::mt19937& random) {
    const auto number = [&random](float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    };
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    const auto vector = [&number](float most) {
        return qxCVector3d(number(-most, most), number(-most, most), number(-most, most));
    };
    for (int i = 0; i < movie.getNumFrames(); ++i) {
        qxCMovieFrame& frame = *movie.getFrame(i);
        frame.setKeyframe(below(10) == 0);
        frame.setTranslation(vector(100.0F));
        frame.setRotation(vector(400.0F));
        frame.setFov(number(10.0F, 90.0F));
        frame.setShake(number(0.0F, 3.0F));
        frame.setFrameMode(static_cast<qxMovieFrameMode>(below(3)));
        frame.setFadeMode(static_cast<qxMovieFadeMode>(below(3)));
        frame.setFadeColour({below(256), below(256), below(256), below(256)});
        frame.setCameraMode(static_cast<qxMovieCameraMode>(below(2)));
        frame.setCamera(below(3));
        frame.setTargetName(qxCName(below(2) != 0 ? "mill" : "M\xc3\xbchle"));
        frame.setAnimTrigger(below(4) == 0 ? "turns" : "");
        frame.setEaseIn(static_cast<float>(below(11)) / 10.0F);
        frame.setEaseOut(static_cast<float>(below(11)) / 10.0F);
    }
}
