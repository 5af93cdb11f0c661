#include "sandbox/film/figure_mesh.h"

#include <QMatrix4x4>

#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double MILL_SECONDS = 12.0;
constexpr double FLIGHT_SECONDS = 10.0;
constexpr float FULL_TURN = 360.0F; // degrees

constexpr QVector3D WALL(0.86F, 0.82F, 0.74F);
constexpr QVector3D ROOF(0.45F, 0.22F, 0.17F);
constexpr QVector3D WOOD(0.33F, 0.23F, 0.16F);
constexpr QVector3D CANVAS(0.95F, 0.92F, 0.84F);
constexpr QVector3D FEATHERS(0.10F, 0.10F, 0.12F);

/// Collects triangles that are given in a figure's own measure.
class CMesh {
public:
    explicit CMesh(QMatrix4x4 toWorld) : m_toWorld(std::move(toWorld)) {}

    const QMatrix4x4& toWorld() const { return m_toWorld; }
    void setToWorld(const QMatrix4x4& toWorld) { m_toWorld = toWorld; }

    void triangle(const QVector3D& a, const QVector3D& b, const QVector3D& c, const QVector3D& colour) {
        const std::array<QVector3D, 3> places{m_toWorld.map(a), m_toWorld.map(b), m_toWorld.map(c)};
        const QVector3D normal = QVector3D::normal(places[0], places[1], places[2]);
        for (const QVector3D& place : places) {
            m_vertices.push_back({place, normal, colour});
        }
    }
    void quad(const QVector3D& a, const QVector3D& b, const QVector3D& c, const QVector3D& d,
              const QVector3D& colour) {
        triangle(a, b, c, colour);
        triangle(a, c, d, colour);
    }
    std::vector<FigureVertex> take() { return std::move(m_vertices); }

private:
    QMatrix4x4 m_toWorld;
    std::vector<FigureVertex> m_vertices;
};

/// A stump of a cone with eight sides about the upright axis.
void addStump(CMesh& mesh, float bottom, float bottomRadius, float top, float topRadius,
              const QVector3D& colour) {
    constexpr int SIDES = 8;
    const auto corner = [](int side, float height, float radius) {
        const double angle = 2.0 * std::numbers::pi * side / SIDES;
        return QVector3D(radius * static_cast<float>(std::cos(angle)), height,
                         radius * static_cast<float>(std::sin(angle)));
    };
    for (int side = 0; side < SIDES; ++side) {
        mesh.quad(corner(side, bottom, bottomRadius), corner(side, top, topRadius),
                  corner(side + 1, top, topRadius), corner(side + 1, bottom, bottomRadius), colour);
    }
}

/// A sail that stands up from the hub: its spar, and canvas on one side of it.
void addSail(CMesh& mesh) {
    mesh.quad({-0.012F, 0.0F, 0.0F}, {0.012F, 0.0F, 0.0F}, {0.012F, 0.62F, 0.0F}, {-0.012F, 0.62F, 0.0F},
              WOOD);
    mesh.quad({0.012F, 0.12F, 0.005F}, {0.14F, 0.12F, 0.02F}, {0.14F, 0.61F, 0.02F}, {0.012F, 0.61F, 0.005F},
              CANVAS);
}

/// How much of a movement is done after this share of its time: it sets in and ends gently.
double smooth(double share) {
    return share * share * (3.0 - 2.0 * share);
}

/// One unit high without its sails.
void addMill(CMesh& mesh, std::optional<double> time) {
    constexpr float TURNS = 6.0F; // whole ones, so that it stands afterwards as before
    constexpr float REST = 25.0F; // degrees
    constexpr float FACING = 35.0F;
    const auto share = static_cast<float>(smooth(time.value_or(0.0) / MILL_SECONDS));
    addStump(mesh, -0.1F, 0.22F, 0.78F, 0.15F, WALL);
    addStump(mesh, 0.78F, 0.18F, 1.0F, 0.0F, ROOF);
    QMatrix4x4 hub = mesh.toWorld();
    hub.rotate(FACING, 0.0F, 1.0F, 0.0F);
    hub.translate(0.0F, 0.8F, 0.2F);
    hub.rotate(REST + TURNS * FULL_TURN * share, 0.0F, 0.0F, 1.0F);
    for (int sail = 0; sail < 4; ++sail) {
        mesh.setToWorld(hub);
        addSail(mesh);
        hub.rotate(FULL_TURN / 4.0F, 0.0F, 0.0F, 1.0F);
    }
}

/// A bird that flies along z, its wings raised by `lift` degrees.
void addBird(CMesh& mesh, float size, float lift) {
    const double angle = lift / FULL_TURN * 2.0 * std::numbers::pi;
    const float out = size * static_cast<float>(std::cos(angle));
    const float up = size * static_cast<float>(std::sin(angle));
    mesh.quad({0.0F, 0.0F, 0.5F * size}, {0.12F * size, 0.0F, 0.0F}, {0.0F, 0.0F, -0.6F * size},
              {-0.12F * size, 0.0F, 0.0F}, FEATHERS);
    for (const float side : {-1.0F, 1.0F}) {
        mesh.triangle({0.0F, 0.0F, 0.25F * size}, {0.0F, 0.0F, -0.2F * size}, {side * out, up, -0.1F * size},
                      FEATHERS);
    }
}

/// Sits within a ring, rises turning about its middle, and comes down again.
void addFlock(CMesh& mesh, std::optional<double> time) {
    constexpr int BIRDS = 16;
    constexpr double BEATS = 3.0; // of the wings, a second
    constexpr float FOLDED = 75.0F;
    constexpr float BEAT = 40.0F; // degrees to each side
    const double share = time.value_or(0.0) / FLIGHT_SECONDS;
    const double risen = std::sin(std::numbers::pi * share) * std::sin(std::numbers::pi * share);
    const QMatrix4x4 toWorld = mesh.toWorld();
    for (int bird = 0; bird < BIRDS; ++bird) {
        const double place = 2.399963 * bird; // the golden angle spreads them without rows
        const double turn = place + 4.0 * std::numbers::pi * smooth(share);
        const double radius = 0.12 + 0.3 * std::sqrt(bird / double(BIRDS)) + 0.5 * risen;
        const double height = 0.02 + risen * (1.4 + 0.5 * std::sin(3.0 * bird));
        QMatrix4x4 own = toWorld;
        own.translate(static_cast<float>(radius * std::cos(turn)), static_cast<float>(height),
                      static_cast<float>(radius * std::sin(turn)));
        own.rotate(static_cast<float>(-turn * 180.0 / std::numbers::pi), 0.0F, 1.0F, 0.0F);
        mesh.setToWorld(own);
        const double beat = std::sin(2.0 * std::numbers::pi * BEATS * time.value_or(0.0) + bird);
        const auto flying = static_cast<float>(std::min(1.0, 6.0 * risen));
        addBird(mesh, 0.07F, flying * BEAT * static_cast<float>(beat) + (1.0F - flying) * FOLDED);
    }
}

} // namespace

double animationLength(FigureKind kind) {
    return kind == FigureKind::MILL ? MILL_SECONDS : FLIGHT_SECONDS;
}

std::optional<double> animationTime(CMemoryMovie& movie, const FilmFigure& figure, double seconds) {
    constexpr double ROUNDING = 1e-4; // of a frame: times are sums of floats
    const QByteArray name = figure.animation.toUtf8();
    const auto rate = static_cast<double>(movie.getStepRate());
    const double length = animationLength(figure.kind);
    const auto reached = std::min(seconds * rate + ROUNDING, movie.getNumFrames() - 1.0);
    for (int frame = static_cast<int>(reached); frame >= 0 && seconds - frame / rate < length; --frame) {
        if (!name.isEmpty() && name == movie.getFrame(frame)->animTrigger) {
            return std::max(seconds - frame / rate, 0.0);
        }
    }
    return std::nullopt;
}

std::vector<FigureVertex> figureMesh(const FilmFigure& figure, double ground, std::optional<double> time) {
    QMatrix4x4 toWorld;
    toWorld.translate(figure.position.x, static_cast<float>(ground), figure.position.z);
    toWorld.scale(figure.size);
    CMesh mesh(toWorld);
    figure.kind == FigureKind::MILL ? addMill(mesh, time) : addFlock(mesh, time);
    return mesh.take();
}
