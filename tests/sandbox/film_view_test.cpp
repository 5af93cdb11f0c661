#include "engine/memory/movie/camera_angles.h"
#include "sandbox/film/figure_mesh.h"
#include "sandbox/film/film_camera.h"
#include "sandbox/film/film_marks.h"
#include "sandbox/view/film_pilot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr double FAR_DISTANCE = 1000.0;

std::string g_strReports; ///< what the editor was told: a letter a camera, upper case at the end of a move

/// A film of 20 frames over level ground, seen through its camera.
class FilmView : public testing::Test {
protected:
    FilmView() {
        m_film.movie().addCamera("A");
        m_film.movie().addCamera("B");
        m_film.movie().updateManual(0.0F);
        m_scene.selectCamera(m_film.movie().getChildCamera(0));
        m_pilot.setFilm(&m_film);
        g_strReports.clear();
    }

    qxCMovieFrame& key(int index) {
        qxCMovieFrame& frame = *m_film.movie().getFrame(index);
        frame.setKeyframe(true);
        return frame;
    }

    CMemoryScene m_scene;
    CFilm m_film{m_scene, 20, 10.0F};
    FilmCalls m_calls{[](qxCCamera* camera, bool finished) {
        const char letter = camera->name.getString()[0];
        g_strReports += finished ? letter : static_cast<char>(std::tolower(letter));
    }};
    CFilmPilot m_pilot{m_calls};
};

TEST_F(FilmView, TheViewSeesWhatTheCameraSees) {
    const qxCVector3d rotations[] = {{0, 0, 0},   {12, 34, 0},   {-60, 200, 15}, {45, -170, -30},
                                     {90, 10, 0}, {-90, 75, 90}, {5, 725, 180}};
    for (const qxCVector3d& rotation : rotations) {
        CViewCamera view;
        lookThrough(view, {1, 2, 3}, rotation, 60.0F, FAR_DISTANCE);
        const qxCVector3d wanted = directionOf(rotation);
        const CViewCamera::Vector ahead = view.forward();
        EXPECT_NEAR(std::hypot(ahead[0] - wanted.x, ahead[1] - wanted.y, ahead[2] - wanted.z), 0.0, 1e-6);
        // A positive roll turns the right side down, by as much as the pitch lets it.
        const double drop =
            std::sin(rotation.z * 0.017453292519943295) * std::cos(rotation.x * 0.017453292519943295);
        EXPECT_NEAR(view.right()[1], -drop, 1e-6) << rotation.z;
        EXPECT_NEAR(view.tanHalfFov(), std::tan(0.5235987755982988), 1e-6);

        CMemoryCamera camera(nullptr, "c");
        camera.rotation = rotation;
        view.move(3.0, 1.0, 2.0);
        moveTo(camera, view);
        EXPECT_EQ(camera.rotation, rotation) << "moved, not turned: the same to the bit";
        view.look(0.1, -0.2);
        moveTo(camera, view);
        const CViewCamera::Vector turned = view.forward();
        const qxCVector3d now = directionOf(camera.rotation);
        EXPECT_NEAR(std::hypot(turned[0] - now.x, turned[1] - now.y, turned[2] - now.z), 0.0, 1e-6);
        EXPECT_EQ(camera.rotation.z, rotation.z);
    }
}

TEST_F(FilmView, AMoveIsReportedAndItsEndOnce) {
    m_pilot.finish();
    EXPECT_EQ(g_strReports, "") << "no end without a move";
    for (int step = 0; step < 2; ++step) {
        m_pilot.camera(FAR_DISTANCE).move(1.0, 0.0, 0.0);
        m_pilot.moved();
    }
    m_pilot.finish();
    m_pilot.finish();
    EXPECT_EQ(g_strReports, "aaA");
    EXPECT_NEAR(m_film.movie().getChildCamera(0)->position.z, 2.0F, 1e-6F) << "along z with heading 0";

    // The camera that the film drives where it stands is the one that is flown.
    key(5).setCamera(1);
    m_film.movie().updateTweening();
    m_film.movie().updateManual(0.5F);
    m_pilot.camera(FAR_DISTANCE);
    m_pilot.moved();
    EXPECT_EQ(g_strReports, "aaAb");
    m_pilot.setFilm(nullptr); // the editor was closed in mid-move
    m_pilot.finish();
    EXPECT_EQ(g_strReports, "aaAb");
    EXPECT_FALSE(m_pilot.isLooking());
}

TEST_F(FilmView, ThePictureTremblesAndFadesAsTheFilmSays) {
    key(0).setShake(2.0F);
    key(0).setFadeMode(qxMovieFadeOut);
    key(0).setFadeColour({200, 100, 50, 255});
    CMemoryMovie& movie = m_film.movie();
    movie.updateTweening();
    movie.updateManual(movie.convertFrameToTime(10));
    movie.setRangeSingleFrame(10);
    EXPECT_NE(m_pilot.pictureCamera(FAR_DISTANCE).forward(), m_pilot.camera(FAR_DISTANCE).forward());
    m_pilot.moved();
    EXPECT_EQ(m_pilot.pictureCamera(FAR_DISTANCE).forward(), m_pilot.camera(FAR_DISTANCE).forward())
        << "not under the hand";
    const QColor fade = m_pilot.fade();
    EXPECT_EQ(fade.rgb() & 0xFFFFFFU, QColor(200, 100, 50).rgb() & 0xFFFFFFU);
    EXPECT_NEAR(fade.alphaF(), 10.0 / 19.0, 0.01);
    movie.flags |= qxMovieNoFades;
    EXPECT_EQ(m_pilot.fade().alpha(), 0);

    movie.flags &= ~std::uint32_t{qxMovieStopped};
    movie.play();
    EXPECT_FALSE(m_pilot.mayMove()) << "the film moves its camera itself";
}

TEST_F(FilmView, ThePathIsWhatTheMovieSaysAndEndsAtCuts) {
    CMemoryMovie& movie = m_film.movie();
    key(0).setFrameMode(qxMovieFrameSpline);
    key(8).setTranslation({10, 5, 3});
    key(8).setFrameMode(qxMovieFrameSwitch);
    key(12).setTranslation({50, 9, 40});
    movie.getFrame(19)->setTranslation({60, 2, 40});
    movie.updateTweening();
    const std::vector<std::uint16_t> level(101 * 101, 0);
    const HeightField ground{100, 1.0, level.data()};
    m_film.addPlace("Mill", {1, 0, 1});
    movie.flags |= qxMovieShowPath;
    const FilmMarks marks = markFilm(m_film, ground);
    const auto hasLine = [&](int from, int to) {
        const auto at = [&](int frame) {
            const qxCVector3d place = movie.poseAt(movie.convertFrameToTime(frame)).position;
            return QVector3D(place.x, place.y, place.z);
        };
        return std::ranges::any_of(
            marks.lines, [&](const FilmLine& line) { return line.from == at(from) && line.to == at(to); });
    };
    for (int frame = 0; frame < 19; ++frame) {
        const bool isMoving = frame < 8 || frame > 11;
        EXPECT_EQ(hasLine(frame, frame + 1), isMoving) << frame;
    }
    const auto isNamed = [](const FilmMarks& shown, const char* name) {
        return std::ranges::any_of(shown.labels,
                                   [&](const FilmLabel& label) { return label.text.contains(name); });
    };
    EXPECT_TRUE(isNamed(marks, "Mill") && isNamed(marks, "A  0") && isNamed(marks, "12"));
    EXPECT_TRUE(isNamed(markCurrent(m_film, ground), "A"));
    movie.flags ^= qxMovieShowPath | qxMovieShowHeights;
    const FilmMarks heights = markFilm(m_film, ground);
    EXPECT_FALSE(isNamed(heights, "12"));
    EXPECT_TRUE(isNamed(heights, "9 high") && isNamed(heights, "Mill"));
}

TEST_F(FilmView, AnAnimationRunsOnceWhenItsFrameIsReached) {
    CMemoryMovie movie(nullptr, 400, 10.0F);
    for (const int frame : {5, 20, 390}) {
        movie.getFrame(frame)->setAnimTrigger(frame == 390 ? "no such" : "turns");
    }
    const FilmFigure mill{"turns", FigureKind::MILL, {9.0F, 0.0F, 9.0F}, 10.0F};
    const struct {
        double seconds;
        std::optional<double> time;
    } cases[] = {{0.0, {}},    {0.49, {}}, {0.5, 0.0}, {1.5, 1.0}, {2.0, 0.0}, // begins anew
                 {13.9, 11.9}, {14.1, {}}, {39.5, {}}};
    for (const auto& one : cases) {
        const std::optional<double> time = animationTime(movie, mill, one.seconds);
        ASSERT_EQ(time.has_value(), one.time.has_value()) << one.seconds;
        EXPECT_NEAR(time.value_or(0.0), one.time.value_or(0.0), 1e-6) << one.seconds;
    }
    for (const FigureKind kind : {FigureKind::MILL, FigureKind::BIRDS}) {
        const FilmFigure figure{"runs", kind, {9.0F, 0.0F, 9.0F}, 10.0F};
        const double length = animationLength(kind);
        const auto movedBy = [&](double time) {
            const std::vector<FigureVertex> rest = figureMesh(figure, 3.0, {});
            const std::vector<FigureVertex> then = figureMesh(figure, 3.0, time);
            float most = 0.0F;
            for (std::size_t i = 0; i < rest.size(); ++i) {
                most = std::max(most, rest[i].place.distanceToPoint(then.at(i).place));
            }
            return most;
        };
        EXPECT_GT(movedBy(length * 0.4), 3.0F);
        EXPECT_LT(movedBy(length), 0.1F) << "it stands afterwards as before";
    }
}

} // namespace
