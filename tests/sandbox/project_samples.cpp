#include "sandbox/project_samples.h"

#include "sandbox/project/project_json.h"

#include <algorithm>
#include <random>
#include <tuple>

namespace {

QByteArray textOf(const Project& project) {
    ProjectSettings settings = project.settings;
    settings.layers = {};
    return writeProjectJson(settings, {}, {});
}

auto fieldsOf(const ProjectDetail& detail) {
    const auto& [a, b, c] = detail.points;
    return std::tuple(detail.texture, detail.type, a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z,
                      detail.scalar);
}

} // namespace

Project makeProject(unsigned seed) {
    constexpr int EDGE = 9;
    std::mt19937 random(seed);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    Project project;
    project.edge = EDGE;
    for (int i = 0; i < EDGE * EDGE; ++i) {
        project.heights.push_back(static_cast<std::uint16_t>(below(65536)));
        project.blends.push_back(static_cast<std::uint16_t>(below(65536)));
        project.colours.push_back({below(256), below(256), below(256), below(256)});
        project.water.push_back(static_cast<std::uint8_t>(below(2)));
    }
    ProjectSettings& settings = project.settings;
    settings.waterLevel = static_cast<float>(below(1000)) * 0.1F;
    settings.textures.push_back(
        {QString("grass %1").arg(seed), "grass.tga", qxTextureSize64, qxPixelFormatRgb565});
    settings.definitions.resize(3);
    settings.definitions[1].blend = 0.25F;
    settings.terrainTypes.resize(2);
    for (int i = 0; i < 4; ++i) {
        const auto at = static_cast<float>(below(100));
        settings.details.push_back({i % 2 - 1,
                                    i < 2 ? qxDetailTypeQuad : qxDetailTypePoint,
                                    {{{at, 0, 1}, {at + 1, 0, 1}, {at, 0, 2}}},
                                    0.1F * at});
    }
    ProjectFilm& film = settings.film.emplace();
    film.frameCount = 10 + below(10);
    film.cameras = {"Crane"};
    film.places = {{"Mill", {1, static_cast<float>(below(100)), 2}}};
    film.sounds = {"bell.wav"};
    film.frames.resize(1);
    film.frames[0].frame.fov = static_cast<float>(below(90));
    return project;
}

bool isSameProject(const Project& a, const Project& b) {
    return a.heights == b.heights && a.blends == b.blends && a.water == b.water &&
           std::ranges::equal(a.colours, b.colours,
                              [](const qxCColour& x, const qxCColour& y) {
                                  return std::tuple(x.r, x.g, x.b, x.a) == std::tuple(y.r, y.g, y.b, y.a);
                              }) &&
           std::ranges::equal(a.settings.details, b.settings.details, {}, fieldsOf, fieldsOf) &&
           textOf(a) == textOf(b);
}
