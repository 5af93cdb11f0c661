#include "sandbox/project/film_json.h"

#include "sandbox/project/json_values.h"
#include "sandbox/project/project_limits.h"

#include <limits>
#include <utility>

namespace {

constexpr double LARGEST_NUMBER = std::numeric_limits<float>::max();
constexpr double SLOWEST_RATE = 1e-3; // frames a second
constexpr double FASTEST_RATE = 1e6;
constexpr double SMALLEST_FIGURE = 1e-3; // world units
constexpr int VERSION_WITH_FIGURES = 2;
constexpr int ANY_LOW = std::numeric_limits<int>::min();
constexpr int ANY_HIGH = std::numeric_limits<int>::max();

QString textOf(const char* utf8) {
    return QString::fromUtf8(utf8);
}

std::vector<QString> readTexts(CJsonReader& reader, const char* key, int most, int longest) {
    std::vector<QString> texts;
    const QJsonArray list = reader.readList(key, most);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        texts.push_back(reader.entry(key, list, i).readText("name", longest));
    }
    return texts;
}

std::vector<FilmPlace> readPlaces(CJsonReader& reader) {
    std::vector<FilmPlace> places;
    const QJsonArray list = reader.readList("places", MOST_PLACES);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("places", list, i);
        places.push_back(
            {entry.readText("name", LONGEST_NAME), entry.readVector("position", LARGEST_NUMBER)});
    }
    return places;
}

std::vector<FilmFigure> readFigures(CJsonReader& reader) {
    std::vector<FilmFigure> figures;
    const QJsonArray list = reader.readList("figures", MOST_FIGURES);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("figures", list, i);
        FilmFigure figure;
        figure.animation = entry.readText("animation", qxCMovieFrame::ANIM_TRIGGER_LENGTH);
        figure.kind = static_cast<FigureKind>(
            entry.readInt("kind", static_cast<int>(FigureKind::MILL), static_cast<int>(FigureKind::BIRDS)));
        figure.position = entry.readVector("position", LARGEST_NUMBER);
        figure.size = entry.readFloat("size", SMALLEST_FIGURE, LARGEST_NUMBER);
        figures.push_back(figure);
    }
    return figures;
}

qxCMovieFrame readFrame(CJsonReader& reader) {
    qxCMovieFrame frame;
    frame.keyframe = reader.readBool("keyframe");
    frame.camera = reader.readInt("camera", ANY_LOW, ANY_HIGH);
    frame.translation = reader.readVector("position", LARGEST_NUMBER);
    frame.rotation = reader.readVector("rotation", LARGEST_NUMBER);
    frame.fov = reader.readFloat("fieldOfView", -LARGEST_NUMBER, LARGEST_NUMBER);
    frame.shake = reader.readFloat("shake", -LARGEST_NUMBER, LARGEST_NUMBER);
    frame.cameraMode =
        static_cast<qxMovieCameraMode>(reader.readInt("cameraMode", qxMovieCameraFree, qxMovieCameraTarget));
    frame.targetName.setString(reader.readText("target", LONGEST_TARGET).toUtf8().constData());
    frame.frameMode = static_cast<qxMovieFrameMode>(
        reader.readInt("interpolation", qxMovieFrameLinear, qxMovieFrameSpline));
    frame.fadeMode = static_cast<qxMovieFadeMode>(reader.readInt("fade", qxMovieFadeNone, qxMovieFadeOut));
    frame.fadeColour = reader.readColour("fadeColour");
    frame.setAnimTrigger(reader.readText("trigger", qxCMovieFrame::ANIM_TRIGGER_LENGTH).toUtf8().constData());
    frame.easeIn = reader.readFloat("easeIn", 0.0, 1.0);
    frame.easeOut = reader.readFloat("easeOut", 0.0, 1.0);
    return frame;
}

std::vector<FilmFrame> readFrames(CJsonReader& reader, int frameCount) {
    std::vector<FilmFrame> frames;
    const QJsonArray list = reader.readList("frames", MOST_STORED_FRAMES);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("frames", list, i);
        const int after = frames.empty() ? 0 : frames.back().index + 1;
        const int index = entry.readInt("frame", after, frameCount - 1);
        frames.push_back({index, readFrame(entry)});
    }
    return frames;
}

QJsonObject frameText(const FilmFrame& stored) {
    const qxCMovieFrame& frame = stored.frame;
    return {{"frame", stored.index},
            {"keyframe", frame.keyframe},
            {"camera", frame.camera},
            {"position", vectorText(frame.translation)},
            {"rotation", vectorText(frame.rotation)},
            {"fieldOfView", shortest(frame.fov)},
            {"shake", shortest(frame.shake)},
            {"cameraMode", frame.cameraMode},
            {"target", textOf(frame.targetName.getString())},
            {"interpolation", frame.frameMode},
            {"fade", frame.fadeMode},
            {"fadeColour", colourText(frame.fadeColour)},
            {"trigger", textOf(frame.animTrigger)},
            {"easeIn", shortest(frame.easeIn)},
            {"easeOut", shortest(frame.easeOut)}};
}

QJsonObject nameText(const QString& name) {
    return {{"name", name}};
}

QJsonObject placeText(const FilmPlace& place) {
    return {{"name", place.name}, {"position", vectorText(place.position)}};
}

QJsonObject figureText(const FilmFigure& figure) {
    return {{"animation", figure.animation},
            {"kind", static_cast<int>(figure.kind)},
            {"position", vectorText(figure.position)},
            {"size", shortest(figure.size)}};
}

} // namespace

ProjectFilm readFilm(CJsonReader reader) {
    ProjectFilm film;
    const int version = reader.readInt("version", 1, ANY_HIGH);
    if (version > FILM_VERSION) {
        reader.fail("version", QString("is %1: the film was made by a newer version of this program, which "
                                       "knows films up to %2")
                                   .arg(version)
                                   .arg(FILM_VERSION));
        return film;
    }
    film.frameCount = reader.readInt("frameCount", 1, MOST_FRAMES);
    film.stepRate = reader.readFloat("stepRate", SLOWEST_RATE, FASTEST_RATE);
    film.showsPath = reader.readBool("path");
    film.showsHeights = reader.readBool("heights");
    film.hidesFades = reader.readBool("noFades");
    film.cameras = readTexts(reader, "cameras", MOST_CAMERAS, LONGEST_NAME);
    film.places = readPlaces(reader);
    if (version >= VERSION_WITH_FIGURES) {
        film.figures = readFigures(reader);
    }
    film.sounds = readTexts(reader, "soundtrack", MOST_SOUNDS, LONGEST_SOUND);
    film.frames = readFrames(reader, film.frameCount);
    return film;
}

QJsonObject filmText(const ProjectFilm& film) {
    return {{"version", FILM_VERSION},
            {"frameCount", film.frameCount},
            {"stepRate", shortest(film.stepRate)},
            {"path", film.showsPath},
            {"heights", film.showsHeights},
            {"noFades", film.hidesFades},
            {"cameras", listOf(film.cameras, nameText)},
            {"places", listOf(film.places, placeText)},
            {"figures", listOf(film.figures, figureText)},
            {"soundtrack", listOf(film.sounds, nameText)},
            {"frames", listOf(film.frames, frameText)}};
}
