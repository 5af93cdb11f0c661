#include "sandbox/film/film_record.h"

#include "sandbox/app/map_document.h"
#include "sandbox/project/project_json.h"
#include "sandbox/project/project_limits.h"
#include "sandbox/view/point_textures.h"
#include "support/frame_values.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>

namespace {

QByteArray textOf(CFilm& film) {
    ProjectSettings settings;
    settings.film = captureFilm(film);
    return writeProjectJson(settings, {}, {});
}

/// The names of all that has one, in its order, and where it stands.
std::string namesOf(CFilm& film) {
    std::string text;
    for (int index = 0; index < film.movie().getSoundtrackSize(); ++index) {
        text += film.movie().getSound(index)->name + std::string("|");
    }
    for (const auto& place : film.places()) {
        text += place->name.getString() + std::to_string(place->position.y);
    }
    for (const FilmFigure& figure : film.figures()) {
        text += figure.animation.toStdString() + std::to_string(static_cast<int>(figure.kind)) +
                std::to_string(figure.position.x) + std::to_string(figure.size);
    }
    for (int index = 0; index < film.movie().getNumChildNodes(); ++index) {
        text += film.movie().getChildNode(index)->name.getString() + std::string("|");
    }
    return text + std::to_string(film.movie().flags) + "|" + std::to_string(film.movie().getStepRate());
}

std::unique_ptr<CFilm> reopened(const QByteArray& text, CMemoryScene& scene) {
    const ProjectJsonReading reading = parseProjectJson(text);
    EXPECT_EQ(reading.error.toStdString(), "");
    return buildFilm(reading.settings.film.value(), scene);
}

TEST(FilmRecord, EveryFilmComesBackFromItsFile) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        CMemoryScene scene;
        CFilm film(scene, 1 + static_cast<int>(random() % 30), 0.1F + static_cast<float>(seed));
        film.movie().addCamera("A");
        film.addPlace("M\xc3\xbchle", {1, 2, 3});
        film.setFigures({{"rise", FigureKind::BIRDS, {4, 5, 6}, 7.5F}});
        film.movie().addSound("b\xc3\xa4r.wav");
        film.movie().flags |= static_cast<std::uint32_t>(seed % 8) * 2;
        fillRandomly(film.movie(), random);
        if (seed % 2 == 0) {
            film.movie().updateTweening();
        }
        // The fade level is the engine's own and follows from the keyframes.
        film.movie().getFrame(0)->setShake(1.0F);
        const QByteArray text = textOf(film);
        CMemoryScene otherScene;
        const auto opened = reopened(text, otherScene);
        ASSERT_EQ(textOf(*opened), text) << "seed " << seed;
        film.movie().updateTweening();
        opened->movie().updateTweening();
        ASSERT_TRUE(valuesOf(opened->movie()) == valuesOf(film.movie())) << "seed " << seed;
        ASSERT_EQ(namesOf(*opened), namesOf(film));
    }
}

TEST(FilmRecord, BadFilmsAreRefusedByName) {
    struct Damage {
        const char* key;
        QJsonValue value;
        const char* reason;
    };
    const QJsonArray twice{QJsonObject{{"frame", 4}}};
    const Damage damages[] = {
        {"version", 3,
         "\"film.version\" is 3: the film was made by a newer version of this program, which knows films up "
         "to "
         "2"},
        {"frameCount", 0, "\"film.frameCount\" is not a whole number from 1 to 100000"},
        {"frameCount", 3, "\"film.frames[1].frame\" is not a whole number from 1 to 2"},
        {"stepRate", 0, "\"film.stepRate\" is not a number from 0.001 to 1e+06"},
        {"stepRate", QJsonValue(), "\"film.stepRate\" is not a number"},
        {"cameras", QJsonArray{1}, "\"film.cameras[0]\" is not an object"},
        {"places", QJsonArray{QJsonObject{{"name", "x"}, {"position", QJsonArray{1, 2}}}},
         "\"film.places[0].position\" does not have 3 numbers"},
        {"figures", QJsonArray{QJsonObject{{"animation", "x"}, {"kind", 2}}},
         "\"film.figures[0].kind\" is not a whole number from 0 to 1"},
        {"soundtrack", QJsonValue(QJsonValue::Undefined), "\"film.soundtrack\" is missing"},
        {"frames", twice, "\"film.frames[0].keyframe\" is missing"},
    };
    CMemoryScene scene;
    CFilm film(scene, 5, 25.0F);
    for (const Damage& damage : damages) {
        QJsonObject json = QJsonDocument::fromJson(textOf(film)).object();
        json.remove("checksums");
        QJsonObject damaged = json["film"].toObject();
        damaged[damage.key] = damage.value;
        json["film"] = damaged;
        EXPECT_EQ(parseProjectJson(QJsonDocument(json).toJson()).error.toStdString(), damage.reason);
    }
}

/// The film takes part in all that a document does for its map.
TEST(FilmRecord, AFilmBelongsToItsDocument) {
    const QTemporaryDir scratch;
    qputenv("XDG_DATA_HOME", scratch.filePath("data").toUtf8());
    const QString folder = scratch.filePath("mine");
    CMapDocument document;
    EXPECT_FALSE(document.isModified());
    ASSERT_EQ(document.saveProject(folder).error.toStdString(), "");
    const auto isChangedBy = [&](const std::function<void(CFilm&)>& change) {
        change(document.film());
        const bool wasNoticed = document.isModified();
        EXPECT_EQ(document.saveProject(folder).error.toStdString(), "");
        return wasNoticed && !document.isModified();
    };
    EXPECT_TRUE(isChangedBy([](CFilm& film) { film.movie().getFrame(9)->setKeyframe(true); }));
    EXPECT_TRUE(isChangedBy([](CFilm& film) { film.movie().flags ^= qxMovieNoFades; }));
    EXPECT_TRUE(isChangedBy([](CFilm& film) { film.addPlace("Bridge", {1, 2, 3}); }));
    EXPECT_TRUE(isChangedBy([](CFilm& film) { film.renamePlace(0, "Old Bridge"); }));
    EXPECT_TRUE(isChangedBy([](CFilm& film) { film.movie().addSound("bell.wav"); }));
    EXPECT_TRUE(isChangedBy([](CFilm& film) { film.movie().addCamera("Crane"); }));
    document.film().movie().setRangeSingleFrame(7); // where an editor stands is no change
    document.film().movie().flags ^= qxMovieStopped;
    EXPECT_FALSE(document.isModified());

    const auto values = valuesOf(document.film().movie());
    const std::string names = namesOf(document.film());
    document.film().movie().getFrame(9)->setFov(20.0F);
    ASSERT_EQ(document.autosave().error.toStdString(), "");
    document.film().movie().getFrame(9)->setFov(30.0F);
    Project copy;
    const QDeadlineTimer end(10'000);
    while (!readProject(CAutomaticCopy::room() + "/1", copy).reason.isEmpty() && !end.hasExpired()) {
        QThread::msleep(5); // it is written by another thread
    }
    ASSERT_TRUE(copy.settings.film.has_value());
    EXPECT_EQ(copy.settings.film->frames.at(1).frame.fov, 20.0F);
    CMapDocument other;
    ASSERT_EQ(other.open(folder, [] {}).error.toStdString(), "");
    other.film().movie().flags ^= qxMovieStopped;
    EXPECT_TRUE(valuesOf(other.film().movie()) == values);
    EXPECT_EQ(namesOf(other.film()), names);
    EXPECT_FALSE(other.isModified());
    // A project from before there were films gets an empty one, and that is no change either.
    Project old;
    ASSERT_EQ(readProject(folder, old).reason.toStdString(), "");
    old.settings.film.reset();
    old.original = {};
    ASSERT_EQ(writeProject(scratch.filePath("old"), old).reason.toStdString(), "");
    ASSERT_EQ(other.open(scratch.filePath("old"), [] {}).error.toStdString(), "");
    EXPECT_EQ(other.film().movie().getNumFrames(), CFilm::FIRST_FRAMES);
    EXPECT_FALSE(other.isModified());
}

/// The film that is shipped is fit to be seen.
TEST(FilmRecord, TheSamplesFilmNeverGoesUnderground) {
    CMapDocument document;
    ASSERT_EQ(document.open(QString(VESK_SAMPLES) + "/jacksboro", [] {}).error.toStdString(), "");
    CMemoryMovie& movie = document.film().movie();
    EXPECT_NEAR(movie.convertFrameToTime(movie.getNumFrames()), 20.0F, 1.0F);
    for (int index = 0; index < movie.getNumFrames(); ++index) {
        const qxCVector3d place = movie.poseAt(movie.convertFrameToTime(index)).position;
        const double ground = groundHeight(heightFieldOf(document.map()), place.x, place.z);
        EXPECT_GT(place.y, std::max(ground, static_cast<double>(document.map().waterLevel)) + 1.5) << index;
    }
}

} // namespace
