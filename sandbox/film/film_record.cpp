#include "sandbox/film/film_record.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <tuple>

namespace {

QString textOf(const qxCName& name) {
    return QString::fromUtf8(name.getString());
}

auto bitsOf(const qxCVector3d& vector) {
    return std::tuple(std::bit_cast<std::uint32_t>(vector.x), std::bit_cast<std::uint32_t>(vector.y),
                      std::bit_cast<std::uint32_t>(vector.z));
}

/// What the tweening gives a frame between two keyframes.
bool isTweenedAlike(const qxCMovieFrame& a, const qxCMovieFrame& b) {
    const auto valuesOf = [](const qxCMovieFrame& frame) {
        return std::tuple(frame.camera, bitsOf(frame.translation), bitsOf(frame.rotation),
                          std::bit_cast<std::uint32_t>(frame.fov), std::bit_cast<std::uint32_t>(frame.shake),
                          frame.cameraMode, frame.fadeMode,
                          std::bit_cast<std::uint32_t>(frame.getFadeColour()));
    };
    return valuesOf(a) == valuesOf(b) && std::strcmp(a.targetName.getString(), b.targetName.getString()) == 0;
}

/// What is a frame's own also between two keyframes; the trigger is looked at elsewhere.
bool isOwnAlike(const qxCMovieFrame& a, const qxCMovieFrame& b) {
    return a.frameMode == b.frameMode && a.easeIn == b.easeIn && a.easeOut == b.easeOut;
}

qxCMovieFrame withoutTrigger(const qxCMovieFrame& frame) {
    qxCMovieFrame plain(frame);
    plain.animTrigger[0] = 0;
    return plain;
}

/// The movie's frames as its keyframes make them.
std::unique_ptr<CMemoryMovie> tweenedCopy(CMemoryMovie& movie) {
    auto copy = std::make_unique<CMemoryMovie>(nullptr, movie.getNumFrames(), movie.getStepRate());
    for (int index = 0; index < movie.getNumFrames(); ++index) {
        *copy->getFrame(index) = *movie.getFrame(index);
    }
    copy->updateTweening();
    return copy;
}

std::vector<FilmFrame> captureFrames(CMemoryMovie& movie) {
    std::vector<FilmFrame> frames;
    const std::unique_ptr<CMemoryMovie> tweened = tweenedCopy(movie);
    int lastKey = movie.getNumFrames() - 1;
    while (lastKey >= 0 && !movie.getFrame(lastKey)->keyframe) {
        --lastKey;
    }
    qxCMovieFrame carried; // what a frame without a key gets that the file says nothing about
    bool isAfterKey = false;
    for (int index = 0; index < movie.getNumFrames(); ++index) {
        const qxCMovieFrame& frame = *tweened->getFrame(index);
        if (frame.keyframe) {
            isAfterKey = true;
            frames.push_back({index, frame});
            continue;
        }
        const bool isBetween = isAfterKey && index < lastKey;
        if (frame.animTrigger[0] != 0 || !isOwnAlike(frame, carried) ||
            !(isBetween || isTweenedAlike(frame, carried))) {
            frames.push_back({index, frame});
            carried = withoutTrigger(frame);
        }
    }
    return frames;
}

constexpr std::uint32_t flagIf(bool isSet, qxMovieFlag flag) {
    return isSet ? std::uint32_t{flag} : 0U;
}

} // namespace

bool isSameFrame(const qxCMovieFrame& a, const qxCMovieFrame& b) {
    return a.keyframe == b.keyframe && isTweenedAlike(a, b) && isOwnAlike(a, b) &&
           std::strcmp(a.animTrigger, b.animTrigger) == 0;
}

std::vector<FilmPlace> placesOf(const CFilm& film) {
    std::vector<FilmPlace> places;
    for (const std::unique_ptr<CPlace>& place : film.places()) {
        places.push_back({textOf(place->name), place->position});
    }
    return places;
}

void putFrames(const std::vector<FilmFrame>& frames, CMemoryMovie& movie) {
    qxCMovieFrame carried;
    auto next = frames.begin();
    for (int index = 0; index < movie.getNumFrames(); ++index) {
        const bool isStored = next != frames.end() && next->index == index;
        *movie.getFrame(index) = isStored ? next->frame : carried;
        if (isStored) {
            carried = next->frame.keyframe ? carried : withoutTrigger(next->frame);
            ++next;
        }
    }
    movie.updateTweening();
}

ProjectFilm captureFilm(CFilm& film) {
    CMemoryMovie& movie = film.movie();
    ProjectFilm record;
    record.frameCount = movie.getNumFrames();
    record.stepRate = movie.getStepRate();
    record.showsPath = (movie.flags & qxMovieShowPath) != 0;
    record.showsHeights = (movie.flags & qxMovieShowHeights) != 0;
    record.hidesFades = (movie.flags & qxMovieNoFades) != 0;
    for (int index = 0; index < movie.getNumChildNodes(); ++index) {
        record.cameras.push_back(textOf(movie.getChildNode(index)->name));
    }
    record.places = placesOf(film);
    record.figures = film.figures();
    for (int index = 0; index < movie.getSoundtrackSize(); ++index) {
        record.sounds.push_back(QString::fromUtf8(movie.getSound(index)->name));
    }
    record.frames = captureFrames(movie);
    return record;
}

std::unique_ptr<CFilm> buildFilm(const ProjectFilm& record, CMemoryScene& scene) {
    auto film = std::make_unique<CFilm>(scene, record.frameCount, record.stepRate);
    CMemoryMovie& movie = film->movie();
    for (const QString& camera : record.cameras) {
        movie.addCamera(camera.toUtf8().constData());
    }
    for (const FilmPlace& place : record.places) {
        film->addPlace(place.name, place.position);
    }
    film->setFigures(record.figures);
    for (const QString& sound : record.sounds) {
        movie.addSound(sound.toUtf8().constData());
    }
    movie.flags |= flagIf(record.showsPath, qxMovieShowPath) |
                   flagIf(record.showsHeights, qxMovieShowHeights) |
                   flagIf(record.hidesFades, qxMovieNoFades);
    putFrames(record.frames, movie);
    movie.updateManual(0.0F);
    return film;
}
