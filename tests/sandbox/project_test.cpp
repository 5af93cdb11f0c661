#include "sandbox/project/project_map.h"

#include "engine/memory/engine_directories.h"
#include "sandbox/project/detail_layer.h"
#include "sandbox/project/project_json.h"
#include "sandbox/project/project_limits.h"
#include "sandbox/project_contents.h"
#include "sandbox/project_samples.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <limits>

namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class ProjectFolder : public testing::Test {
protected:
    QString folder() const { return m_scratch.filePath("my map"); }
    QString file(const QString& name = PROJECT_FILE_NAME) const { return QDir(folder()).filePath(name); }

    std::string save(Project project) { return writeProject(folder(), project).reason.toStdString(); }
    std::string open(Project& project) { return readProject(folder(), project).reason.toStdString(); }
    /// The project file changed as by hand: its sums taken out.
    void edit(const std::function<void(QJsonObject&)>& change) {
        QJsonObject json = QJsonDocument::fromJson(readFile(file())).object();
        json.remove("checksums");
        change(json);
        writeFile(file(), QJsonDocument(json).toJson());
    }

    QTemporaryDir m_scratch;
};

TEST_F(ProjectFolder, AMapSurvivesSavingAndOpening) {
    constexpr int DIM = 8;
    CMemoryScene scene;
    CMemoryMap map(DIM, &scene);
    map.waterLevel = 3.7F;
    map.setTextureTiling(17);
    map.setAmbient({10, 20, 30, 40});
    map.setFlag(qxMapFlagChecker);
    scene.setFogMode(qxFogModeOn);
    qxCTexture* tree = scene.createTexture();
    tree->name.setString("B\xc3\xa4ume");
    tree->setFilename("tree.v2.tga");
    scene.addTexture(tree);
    map.setTexture(qxMapLayerWater, tree);
    *map.addMultiTexture() = {{1, 2, 3, 4}, {250, 251, 252, 253}, 0.3F, 0.1F};
    map.getTerrainDef(0)->filter[7] = -0.1F;
    map.addDetail(qxDetailTypeQuad, tree, {1, 0, 2}, {2, 0, 2}, {1, 0, 3}, 0.1F);
    map.addDetail(qxDetailTypePoint, nullptr, {3.3F, 0, 2}, {4, 1, 2}, {3, 0, 5}, 2.0F);
    for (int i = 0; i < (DIM + 1) * (DIM + 1); ++i) {
        map.setPointHeight(i % 9, i / 9, i * 977 % 65536, false);
        map.setPointColour(0, i % 9, i / 9, {i, 255 - i, i * 2, 255 - i % 9});
        map.setPointBlend(1, i % 9, i / 9, i * 5003 % 65536);
        map.setPointWater(i % 9, i / 9, i % 3 == 0);
    }
    ASSERT_EQ(save(captureProject(map, scene)), "");
    for (const QString& path : {folder(), file()}) {
        Project opened;
        ASSERT_EQ(readProject(path, opened).reason.toStdString(), "");
        const auto newScene = buildScene(opened);
        EXPECT_EQ(contents(*buildMap(std::move(opened), *newScene), *newScene), contents(map, scene));
    }
}

TEST_F(ProjectFolder, WhateverIsTypedIntoThePanelCanBeOpenedAgain) {
    constexpr float LARGEST = std::numeric_limits<float>::max();
    Project project = makeProject(1);
    project.settings.definitions[0].blend = 2.5F;
    project.settings.terrainTypes[0].noise = std::numeric_limits<float>::infinity();
    project.settings.terrainTypes[0].weighting = std::numeric_limits<float>::quiet_NaN();
    project.settings.details[0].scalar = -std::numeric_limits<float>::infinity();
    ASSERT_EQ(save(project), "");
    Project opened;
    ASSERT_EQ(open(opened), "");
    EXPECT_EQ(opened.settings.definitions[0].blend, 2.5F);
    EXPECT_EQ(opened.settings.terrainTypes[0].noise, LARGEST);
    EXPECT_EQ(opened.settings.terrainTypes[0].weighting, 0.0F);
    EXPECT_EQ(opened.settings.details[0].scalar, -LARGEST);
}

TEST_F(ProjectFolder, UnknownKeysAreKeptAndNumbersWrittenAsPeopleWriteThem) {
    ASSERT_EQ(save(makeProject(1)), "");
    edit([](QJsonObject& json) {
        json["author"] = "Ada";
        QJsonObject layers = json["layers"].toObject();
        layers["snow"] = "snow.png";
        json["layers"] = layers;
        QJsonObject film = json["film"].toObject();
        film["director"] = "Grace";
        json["film"] = film;
    });
    Project project;
    ASSERT_EQ(open(project), "");
    project.settings.definitions[0].blend = 0.3F;
    ASSERT_EQ(save(project), "");
    const QByteArray saved = readFile(file());
    EXPECT_TRUE(saved.contains("\"author\": \"Ada\"") && saved.contains("\"snow\": \"snow.png\""));
    EXPECT_TRUE(saved.contains("\"director\": \"Grace\""));
    EXPECT_TRUE(saved.contains("\"blend\": 0.3,")) << saved.toStdString();
    EXPECT_EQ(open(project), "") << "its sums hold";
}

TEST_F(ProjectFolder, ASaveReplacesItsOwnLayersAndNothingElse) {
    ASSERT_EQ(save(makeProject(1)), "");
    writeFile(file("notes.png"), "mine");
    writeFile(file("heights.9.png"), "mine as well, though it bears such a name");
    writeFile(file("water.7.png"), readFile(file("water.1.png")).left(90)); // of a save that was killed
    ASSERT_EQ(save(makeProject(2)), "");
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files, QDir::Name).join(' ').toStdString(),
              "blends.2.png colours.2.png details.2.bin heights.2.png heights.9.png notes.png project.json "
              "water.2.png");
}

TEST_F(ProjectFolder, TheFirstFormatStillOpens) {
    Project sample;
    ASSERT_EQ(readProject(QString(VESK_SAMPLES) + "/jacksboro", sample).reason.toStdString(), "");
    EXPECT_GT(sample.settings.details.size(), 600U);
    Project opened;
    ASSERT_EQ(save(sample), "");
    ASSERT_EQ(open(opened), "");
    EXPECT_TRUE(isSameProject(opened, sample));
    EXPECT_FALSE(readFile(file()).contains("\"details\": [")) << "they have a layer of their own now";
}

TEST_F(ProjectFolder, OpeningAndSavingHaveTheSameLimits) {
    Project project = makeProject(1);
    project.settings.definitions.resize(20'000);
    project.settings.details.resize(300'000);
    ASSERT_EQ(save(project), "");
    Project opened;
    EXPECT_EQ(open(opened), "");
    EXPECT_TRUE(isSameProject(opened, project));
    project.settings.definitions.resize(MOST_DEFINITIONS + 1);
    EXPECT_EQ(save(project), "it has 100001 texture definitions; a project has at most 100000");
    EXPECT_EQ(open(opened), "") << "the one saved before";
}

TEST_F(ProjectFolder, BadProjectFilesAreRefusedByName) {
    struct Damage {
        std::function<void(QJsonObject&)> change;
        const char* reason;
    };
    const Damage damages[] = {
        {[](QJsonObject& o) { o["version"] = 3; },
         "it was written by a newer version of this program (format 3, known up to 2)"},
        {[](QJsonObject& o) { o["format"] = "tilemap"; }, "it is not a map project"},
        {[](QJsonObject& o) { o.remove("tiling"); }, "\"tiling\" is missing"},
        {[](QJsonObject& o) { o["fog"] = "yes"; }, "\"fog\" is not true or false"},
        {[](QJsonObject& o) { o["tiling"] = 1.5; }, "\"tiling\" is not a whole number from 1 to 256"},
        {[](QJsonObject& o) { o["ambient"] = "#12345"; },
         "\"ambient\" is not a colour of the form #AARRGGBB"},
        {[](QJsonObject& o) {
             o["layers"] = QJsonObject{{"heights", "../secret.png"}};
         },
         "\"layers.heights\" is not a plain file name"},
        {[](QJsonObject& o) {
             o["baseTextures"] = QJsonObject{{"smooth", 1}};
         },
         "\"baseTextures.smooth\" is not a whole number from -1 to 0"},
        {[](QJsonObject& o) { o["definitions"] = QJsonArray{7}; }, "\"definitions[0]\" is not an object"},
        {[](QJsonObject& o) { o["checksums"] = QJsonObject(); },
         "it was changed or damaged after it was saved; to open it as it is, remove \"checksums\" from it"},
    };
    ASSERT_EQ(save(makeProject(1)), "");
    const QByteArray good = readFile(file());
    for (const Damage& damage : damages) {
        writeFile(file(), good);
        edit(damage.change);
        Project untouched;
        const ProjectFault fault = readProject(folder(), untouched);
        EXPECT_EQ(fault.reason.toStdString(), damage.reason);
        EXPECT_EQ(fault.path, file());
        EXPECT_EQ(untouched.edge, 0) << damage.reason;
    }
}

TEST_F(ProjectFolder, BadLayersAreRefusedByName) {
    ASSERT_EQ(save(makeProject(1)), "");
    edit([](QJsonObject&) {}); // without sums the layers' own readers are asked
    CMemoryScene scene;
    CMemoryMap smaller(4, &scene);
    Project other = captureProject(smaller, scene);
    const QString otherFolder = m_scratch.filePath("other");
    ASSERT_EQ(writeProject(otherFolder, other).reason.toStdString(), "");
    std::vector<ProjectDetail> wild(1);
    wild[0].texture = 5;
    const auto from = [&](const char* name) { return readFile(QDir(otherFolder).filePath(name)); };
    const std::tuple<const char*, QByteArray, const char*> cases[] = {
        {"blends.1.png", from("blends.1.png"), "the picture is 5 x 5, which does not fit the map"},
        {"colours.1.png", from("colours.1.png"), "the picture is 5 x 5, which does not fit the map"},
        {"colours.1.png", readFile(file("blends.1.png")),
         "the picture is grey; the colours of a map are red, green, blue and alpha"},
        {"details.1.bin", encodeDetails(wild), "detail 0 is not possible"},
        {"details.1.bin", encodeDetails(wild) + '\0', "its length does not fit its 1 details"},
        {"details.1.bin", "", "it is not a layer of details"}};
    for (const auto& [name, bytes, reason] : cases) {
        const QByteArray good = readFile(file(name));
        writeFile(file(name), bytes);
        Project untouched;
        const ProjectFault fault = readProject(folder(), untouched);
        EXPECT_EQ(fault.path, file(name));
        EXPECT_EQ(fault.reason.toStdString(), reason);
        writeFile(file(name), good);
    }
    ASSERT_TRUE(QFile::remove(file("water.1.png")));
    ASSERT_EQ(mkfifo(file("water.1.png").toLocal8Bit().constData(), 0600), 0);
    Project untouched;
    EXPECT_EQ(open(untouched), "it is not a file") << "nothing waits for what may never come";
}

TEST_F(ProjectFolder, TexturesComeAlong) {
    const QString images = m_scratch.filePath("images");
    QDir().mkpath(images);
    writeFile(QDir(images).filePath("GRASS.TGA"), "an image");
    CEngineDirectories::setDirectories({images.toStdString()});
    const Project project = makeProject(1);
    QStringList copied;
    EXPECT_EQ(copyFiles(project, folder(), copied).reason.toStdString(), "");
    EXPECT_EQ(readFile(file("textures/grass.tga")), "an image");
    writeFile(file("textures/grass.tga"), "changed by hand");
    EXPECT_EQ(copyFiles(project, folder(), copied).reason.toStdString(), "");
    EXPECT_EQ(readFile(file("textures/grass.tga")), "changed by hand") << "an image there stays";
    EXPECT_EQ(copied, QStringList(file("textures/grass.tga")));
    CEngineDirectories::setDirectories({});
}

} // namespace
