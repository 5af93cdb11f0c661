#include "sandbox/journal/film_copy.h"

#include "sandbox/film/film_record.h"

#include <algorithm>

namespace {

void putCameras(const std::vector<QString>& names, CFilm& film) {
    CMemoryMovie& movie = film.movie();
    const int wanted = static_cast<int>(names.size());
    if (movie.getNumChildNodes() > wanted) {
        film.selectViewCamera();
    }
    while (movie.getNumChildNodes() > wanted) {
        movie.removeLastCamera();
    }
    while (movie.getNumChildNodes() < wanted) {
        movie.addCamera(names[static_cast<std::size_t>(movie.getNumChildNodes())].toUtf8().constData());
    }
}

bool isSamePlace(const FilmPlace& left, const FilmPlace& right) {
    return left.name == right.name && left.position == right.position;
}

void putPlaces(const std::vector<FilmPlace>& places, CFilm& film) {
    if (std::ranges::equal(placesOf(film), places, isSamePlace)) {
        return;
    }
    while (!film.places().empty()) {
        film.removePlace(film.places().size() - 1);
    }
    for (const FilmPlace& place : places) {
        film.addPlace(place.name, place.position);
    }
}

void putSounds(const FilmCopy& copy, CMemoryMovie& movie) {
    movie.clearSoundtrack();
    for (std::size_t i = 0; i < copy.film.sounds.size(); ++i) {
        movie.addSound(copy.film.sounds[i].toUtf8().constData());
        qxCMovieSound& sound = *movie.getSound(static_cast<int>(i));
        sound.start = copy.soundTimes[i].start;
        sound.length = copy.soundTimes[i].length;
    }
}

} // namespace

std::size_t FilmCopy::bytes() const {
    return sizeof *this + film.frames.capacity() * sizeof(FilmFrame) +
           film.places.capacity() * sizeof(FilmPlace) +
           (film.cameras.capacity() + film.sounds.capacity()) * sizeof(QString) +
           soundTimes.capacity() * sizeof(SoundTime);
}

FilmCopy copyOf(CFilm& film) {
    FilmCopy copy{captureFilm(film), {}};
    for (int index = 0; index < film.movie().getSoundtrackSize(); ++index) {
        const qxCMovieSound& sound = *film.movie().getSound(index);
        copy.soundTimes.push_back({sound.start, sound.length});
    }
    return copy;
}

void putFilm(const FilmCopy& copy, CFilm& film) {
    CMemoryMovie& movie = film.movie();
    movie.setStepRate(copy.film.stepRate);
    putCameras(copy.film.cameras, film);
    putPlaces(copy.film.places, film);
    putSounds(copy, movie);
    while (movie.getNumFrames() > copy.film.frameCount) {
        movie.deleteFrame(movie.getNumFrames() - 1);
    }
    while (movie.getNumFrames() < copy.film.frameCount) {
        movie.insertFrame(movie.getNumFrames(), new qxCMovieFrame);
    }
    putFrames(copy.film.frames, movie);
    movie.updateManual(movie.convertFrameToTime(movie.getRangeStart()));
}

bool areAlike(const FilmCopy& left, const FilmCopy& right) {
    const ProjectFilm& one = left.film;
    const ProjectFilm& other = right.film;
    return one.frameCount == other.frameCount && one.stepRate == other.stepRate &&
           one.cameras == other.cameras && one.sounds == other.sounds &&
           left.soundTimes == right.soundTimes && std::ranges::equal(one.places, other.places, isSamePlace) &&
           std::ranges::equal(one.frames, other.frames, [](const FilmFrame& a, const FilmFrame& b) {
               return a.index == b.index && isSameFrame(a.frame, b.frame);
           });
}
