#include "sandbox/sample/sample_film.h"

#include <array>

namespace {

constexpr int FRAMES = 500;
constexpr int CRANE = 0;
constexpr int GLIDER = 1;
constexpr const char* LAKE = "Lake";

/// A keyframe; places in the sample's cells, the height above the ground there in world units.
struct Shot {
    int frame;
    int camera;
    float x;
    float above;
    float z;
    float pitch;
    float heading;
    float fieldOfView;
    qxMovieFrameMode mode = qxMovieFrameSpline;
    qxMovieFadeMode fade = qxMovieFadeNone;
    float easeIn = 0.5F;
    float easeOut = 0.5F;
    float shake = 0.0F;
};

// The crane stands still for the last moments before the cut, so that its last way does not lead to the
// glider.
constexpr std::array<Shot, 8> SHOTS{{
    {0, CRANE, 214.0F, 9.0F, 44.0F, -14.0F, 24.0F, 55.0F, qxMovieFrameSpline, qxMovieFadeIn, 0.5F, 0.2F},
    {75, CRANE, 238.0F, 6.0F, 92.0F, -14.0F, 38.0F, 55.0F},
    {160, CRANE, 258.0F, 3.0F, 142.0F, -6.0F, 8.0F, 50.0F},
    {235, CRANE, 262.0F, 4.0F, 186.0F, -8.0F, -12.0F, 46.0F, qxMovieFrameSwitch, qxMovieFadeNone, 0.8F},
    {250, GLIDER, 214.0F, 11.0F, 232.0F, 0.0F, 0.0F, 52.0F, qxMovieFrameSpline, qxMovieFadeNone, 0.5F, 0.3F,
     0.25F},
    {340, GLIDER, 252.0F, 7.0F, 268.0F, 0.0F, 0.0F, 48.0F, qxMovieFrameSpline, qxMovieFadeNone, 0.5F, 0.5F,
     0.1F},
    {430, GLIDER, 276.0F, 5.0F, 288.0F, 0.0F, 0.0F, 44.0F, qxMovieFrameSpline, qxMovieFadeOut},
    {499, GLIDER, 290.0F, 4.0F, 292.0F, 0.0F, 0.0F, 40.0F, qxMovieFrameLinear, qxMovieFadeNone, 0.8F},
}};

qxCMovieFrame keyframeOf(const Shot& shot, const HeightField& ground) {
    qxCMovieFrame frame;
    frame.keyframe = true;
    frame.camera = shot.camera;
    frame.translation = {shot.x, static_cast<float>(groundHeight(ground, shot.x, shot.z)) + shot.above,
                         shot.z};
    frame.rotation = {shot.pitch, shot.heading, 0.0F};
    frame.fov = shot.fieldOfView;
    frame.shake = shot.shake;
    frame.frameMode = shot.mode;
    frame.fadeMode = shot.fade;
    frame.easeIn = shot.easeIn;
    frame.easeOut = shot.easeOut;
    if (shot.camera == GLIDER) {
        frame.cameraMode = qxMovieCameraTarget;
        frame.targetName.setString(LAKE);
    }
    return frame;
}

} // namespace

ProjectFilm sampleFilm(const HeightField& ground) {
    constexpr float LAKE_X = 286.0F;
    constexpr float LAKE_Z = 308.0F;
    constexpr float FIELDS_X = 256.0F;
    constexpr float FIELDS_Z = 114.0F;
    constexpr float MILL_X = 266.0F;
    constexpr float MILL_Z = 122.0F;
    constexpr float BIRDS_X = 263.0F;
    constexpr float BIRDS_Z = 214.0F;
    constexpr int MILL_FRAME = 25;
    constexpr const char* MILL = "mill turns";
    constexpr const char* BIRDS = "birds rise";
    const auto onGround = [&](float x, float z) {
        return qxCVector3d(x, static_cast<float>(groundHeight(ground, x, z)), z);
    };
    ProjectFilm film;
    film.frameCount = FRAMES;
    film.showsPath = true;
    film.cameras = {"Crane", "Glider"};
    film.places = {{LAKE, onGround(LAKE_X, LAKE_Z)}, {"Fields", onGround(FIELDS_X, FIELDS_Z)}};
    film.sounds = {"wind.wav", "birds.wav", "water.wav"};
    for (const Shot& shot : SHOTS) {
        film.frames.push_back({shot.frame, keyframeOf(shot, ground)});
    }
    film.figures = {{MILL, FigureKind::MILL, onGround(MILL_X, MILL_Z), 10.0F},
                    {BIRDS, FigureKind::BIRDS, onGround(BIRDS_X, BIRDS_Z), 10.0F}};
    film.frames[2].frame.setAnimTrigger(BIRDS);
    FilmFrame start{MILL_FRAME, {}}; // between two keyframes, when the picture has faded in
    start.frame.setAnimTrigger(MILL);
    film.frames.insert(film.frames.begin() + 1, start);
    return film;
}
