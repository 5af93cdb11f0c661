// Makes a dressed project of a heightmap, as the sample that the sandbox opens first.
// Usage: vesk_make_sample MAP.png FOLDER

#include "sandbox/app/ground_dressing.h"
#include "sandbox/app/map_document.h"
#include "sandbox/app/value_noise.h"
#include "sandbox/project/project_map.h"
#include "sandbox/sample/sample_film.h"
#include "sandbox/view/point_textures.h"

#include <QCoreApplication>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

// Heights in the sample's metres, places in its cells.
constexpr int LAKE_LEVEL = 316;
constexpr int LAKE_X = 284;
constexpr int LAKE_Z = 313;
constexpr float BEACH = 4.0F; // metres above the lake
constexpr int WIDEST_BEACH = 4;
constexpr int TREE_SPACING = 4;
constexpr float TREE_LINE = 620.0F;

struct SampleField {
    float x;
    float z;
    float width;
    float depth;
    float turn; // radians
};

constexpr std::array<SampleField, 7> FIELDS{{
    {252.0F, 108.0F, 9.0F, 6.0F, 0.3F},
    {263.0F, 112.0F, 8.0F, 6.0F, 0.3F},
    {243.0F, 120.0F, 8.0F, 7.0F, 0.1F},
    {256.0F, 123.0F, 7.0F, 5.0F, 0.5F},
    {226.0F, 168.0F, 8.0F, 5.0F, -0.4F},
    {270.0F, 196.0F, 9.0F, 6.0F, 0.2F},
    {283.0F, 190.0F, 7.0F, 7.0F, 0.0F},
}};

/// Points from (x, z) to the nearest water, at most `limit`.
int distanceToWater(const CMemoryMap& map, int x, int z, int limit) {
    for (int distance = 0; distance < limit; ++distance) {
        for (int i = -distance; i <= distance; ++i) {
            if (map.getPointWater(x + i, z - distance) || map.getPointWater(x + i, z + distance) ||
                map.getPointWater(x - distance, z + i) || map.getPointWater(x + distance, z + i)) {
                return distance;
            }
        }
    }
    return limit;
}

void fillLake(CMapDocument& document) {
    CMemoryMap& map = document.map();
    document.setWaterLevel(LAKE_LEVEL);
    map.addWater(LAKE_X, LAKE_Z);
    map.setCurrentMultiTexture(static_cast<int>(GroundKind::SAND));
    for (int z = 0; z <= map.getGridDim(); ++z) {
        for (int x = 0; x <= map.getGridDim(); ++x) {
            const auto above = static_cast<float>(map.getPointHeight(x, z) - LAKE_LEVEL);
            if (distanceToWater(map, x, z, WIDEST_BEACH) < WIDEST_BEACH) {
                map.paintMultiTexture(x, z, 0.85F * (1.0F - smoothstep(BEACH, 3.0F * BEACH, above)));
            }
        }
    }
    map.setCurrentMultiTexture(static_cast<int>(GroundKind::HEATH));
}

void layFields(CMemoryMap& map, qxCTexture* furrows) {
    for (const SampleField& field : FIELDS) {
        const qxCVector3d along(field.width * std::cos(field.turn), 0.0F, field.width * std::sin(field.turn));
        const qxCVector3d across(-field.depth * std::sin(field.turn), 0.0F,
                                 field.depth * std::cos(field.turn));
        const qxCVector3d corner(field.x, 0.04F, field.z); // a little above the ground, clear of it
        map.addDetail(qxDetailTypeQuad, furrows, corner, corner + along, corner + across, 1.0F);
    }
}

void plant(CMemoryMap& map, qxCTexture* texture, float x, float z, float size, float height) {
    const float half = size / 2.0F;
    map.addDetail(qxDetailTypePoint, texture, {x - half, 0.0F, z - half}, {x + half, 0.0F, z - half},
                  {x - half, 0.0F, z + half}, height);
}

/// One tree or bush at most per square of the spacing, somewhere in it: woods on the slopes, bushes along
/// the water and here and there in the meadows.
void plantTrees(CMemoryMap& map, qxCTexture* pine, qxCTexture* bush) {
    const CValueNoise lots(1);
    const CValueNoise stand(32); // the same as of the forest's paint
    for (int z = TREE_SPACING; z < map.getGridDim() - TREE_SPACING; z += TREE_SPACING) {
        for (int x = TREE_SPACING; x < map.getGridDim() - TREE_SPACING; x += TREE_SPACING) {
            const auto chance = [&](int salt) { return lots.at(x * 7 + salt, z * 11 + salt * 3); };
            const float placeX = static_cast<float>(x) + chance(1) * (TREE_SPACING - 1);
            const float placeZ = static_cast<float>(z) + chance(2) * (TREE_SPACING - 1);
            const int column = static_cast<int>(placeX);
            const int row = static_cast<int>(placeZ);
            const auto height = static_cast<float>(map.getPointHeight(column, row));
            if (map.getPointWater(column, row) || map.getGradient(column, row) > 26.0F) {
                continue;
            }
            const float wood = stand.at(column, row);
            if (wood > 0.5F && height > 335.0F && height < TREE_LINE && chance(3) < 0.8F) {
                plant(map, pine, placeX, placeZ, 1.1F + 0.6F * chance(4), 1.5F);
            } else if (height < 420.0F && distanceToWater(map, column, row, 6) < 6 && chance(5) < 0.3F) {
                plant(map, bush, placeX, placeZ, 0.7F + 0.5F * chance(6), 0.9F);
            } else if (height < 420.0F && chance(7) < 0.05F) {
                plant(map, bush, placeX, placeZ, 0.8F + 0.5F * chance(8), 0.9F);
            }
        }
    }
}

QString makeSample(const QString& heightmap, const QString& folder) {
    CMapDocument document;
    const CMapDocument::Outcome outcome = document.open(heightmap, [] {});
    if (!outcome.error.isEmpty()) {
        return outcome.error;
    }
    CMemoryMap& map = document.map();
    const CMemoryScene& scene = document.scene();
    fillLake(document);
    layFields(map, findTexture(scene, "furrows"));
    plantTrees(map, findTexture(scene, "pine"), findTexture(scene, "bush"));
    // The images are the samples' own, which the sandbox always finds: no need for copies of them.
    Project project = captureProject(map, scene);
    project.settings.film = sampleFilm(heightFieldOf(map));
    const ProjectFault fault = writeProject(folder, project);
    std::printf("%s: %d definitions, %d textures, %d details, lake at %d\n", qPrintable(folder),
                map.getNumMultiTextures(), scene.getNumTextures(), map.getDetails().size(), LAKE_LEVEL);
    return fault.reason.isEmpty() ? QString() : fault.path + ": " + fault.reason;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: vesk_make_sample MAP.png FOLDER\n");
        return 2;
    }
    const QString failure = makeSample(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(failure));
        return 1;
    }
    return 0;
}
