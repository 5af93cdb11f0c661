#include "sandbox/project/project_map.h"

#include "engine/memory/engine_directories.h"
#include "sandbox/project/project_json.h"
#include "sandbox/project_contents.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <gtest/gtest.h>

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

class ProjectFile : public testing::Test {
protected:
    ProjectFile() {
        m_map.waterLevel = 3.7F;
        m_map.heightScale = 0.05F;
        m_map.setTextureTiling(17);
        m_map.setAmbient({10, 20, 30, 40});
        m_map.setDiffuse({200, 190, 180, 170});
        m_map.setFlag(qxMapFlagChecker);
        m_scene.setFogMode(qxFogModeOn);
        qxCTexture* grass = addTexture("Grass", "grass.tga", qxTextureSize64, qxPixelFormatRgb565);
        qxCTexture* tree = addTexture("B\xc3\xa4ume", "tree.v2.tga", qxTextureSizeEmpty, qxPixelFormat8);
        m_map.setTexture(qxMapLayerSmooth, grass);
        m_map.setTexture(qxMapLayerWater, tree);
        *m_map.addMultiTexture() = {{1, 2, 3, 4}, {250, 251, 252, 253}, 0.3F, 0.1F};
        *m_map.addMultiTexture() = {{9, 8, 7, 6}, {5, 4, 3, 2}, 1.0F, 0.0F};
        m_map.setCurrentMultiTexture(1);
        m_map.getTerrainDef(0)->filter[7] = -0.1F;
        m_map.getTerrainDef(0)->preserveFlatAreas = true;
        m_map.addDetail(qxDetailTypeQuad, grass, {1, 0, 2}, {2, 0, 2}, {1, 0, 3}, 0.1F);
        m_map.addDetail(qxDetailTypePoint, nullptr, {3.3F, 0, 2}, {4, 1, 2}, {3, 0, 5}, 2.0F);
        for (int z = 0; z <= DIM; ++z) {
            for (int x = 0; x <= DIM; ++x) {
                m_map.setPointHeight(x, z, (x * 977 + z * 3331) % 65536, false);
                m_map.setPointColour(0, x, z, {x * 30, z * 30, x * z, 255 - x});
                m_map.setPointBlend(1, x, z, (x * 5003 + z * 17) % 65536);
                m_map.setPointWater(x, z, (x + z) % 3 == 0);
            }
        }
    }

    qxCTexture* addTexture(const char* name, const char* file, qxTextureSize size,
                           qxImagePixelFormat format) {
        qxCTexture* texture = m_scene.createTexture();
        texture->name.setString(name);
        texture->setFilename(file);
        texture->setSize(size);
        texture->setPixelFormat(format);
        m_scene.addTexture(texture);
        return texture;
    }

    QString folder() const { return m_scratch.filePath("my map"); }
    QString projectFile() const { return QDir(folder()).filePath(PROJECT_FILE_NAME); }

    void save(Project& project) {
        const ProjectFault fault = writeProject(folder(), project);
        ASSERT_TRUE(fault.reason.isEmpty()) << fault.path.toStdString() << ": " << fault.reason.toStdString();
    }

    static constexpr int DIM = 8;
    QTemporaryDir m_scratch;
    CMemoryScene m_scene;
    CMemoryMap m_map{DIM, &m_scene};
};

TEST_F(ProjectFile, EverythingSurvivesSavingAndOpening) {
    Project project = captureProject(m_map, m_scene);
    save(project);
    for (const QString& path : {folder(), projectFile()}) {
        Project opened;
        ASSERT_EQ(readProject(path, opened).reason.toStdString(), "");
        const auto newScene = buildScene(opened);
        const auto newMap = buildMap(opened, *newScene);
        EXPECT_EQ(contents(*newMap, *newScene), contents(m_map, m_scene));
    }
}

TEST_F(ProjectFile, WhateverIsTypedIntoThePanelCanBeOpenedAgain) {
    constexpr float LARGEST = std::numeric_limits<float>::max();
    m_map.getMultiTexture(0)->blend = 2.5F;
    m_map.getMultiTexture(1)->variation = -7.0F;
    m_map.getTerrainDef(0)->filter[3] = 1e30F;
    m_map.getTerrainDef(0)->noise = std::numeric_limits<float>::infinity();
    m_map.getTerrainDef(0)->weighting = std::numeric_limits<float>::quiet_NaN();
    Project project = captureProject(m_map, m_scene);
    save(project);
    Project opened;
    ASSERT_EQ(readProject(folder(), opened).reason.toStdString(), "");
    EXPECT_EQ(opened.settings.definitions[0].blend, 2.5F);
    EXPECT_EQ(opened.settings.definitions[1].variation, -7.0F);
    EXPECT_EQ(opened.settings.terrainTypes[0].filter[3], 1e30F);
    EXPECT_EQ(opened.settings.terrainTypes[0].noise, LARGEST);
    EXPECT_EQ(opened.settings.terrainTypes[0].weighting, 0.0F);
}

TEST_F(ProjectFile, NumbersAreWrittenAsPeopleWriteThem) {
    const QByteArray text = writeProjectJson(captureProject(m_map, m_scene).settings, {});
    EXPECT_TRUE(text.contains("\"blend\": 0.3,")) << text.toStdString();
    EXPECT_TRUE(text.contains("\"tint1\": \"#04010203\"")) << text.toStdString();
}

TEST_F(ProjectFile, UnknownKeysAreKept) {
    Project project = captureProject(m_map, m_scene);
    save(project);
    QJsonObject json = QJsonDocument::fromJson(readFile(projectFile())).object();
    json["author"] = "Ada";
    QJsonObject layers = json["layers"].toObject();
    layers["snow"] = "snow.png";
    json["layers"] = layers;
    QJsonArray definitions = json["definitions"].toArray();
    QJsonObject first = definitions[0].toObject();
    first["comment"] = "meadow";
    definitions[0] = first;
    json["definitions"] = definitions;
    writeFile(projectFile(), QJsonDocument(json).toJson());

    ASSERT_EQ(readProject(folder(), project).reason.toStdString(), "");
    project.settings.tiling = 99;
    save(project);
    const QJsonObject saved = QJsonDocument::fromJson(readFile(projectFile())).object();
    EXPECT_EQ(saved["author"].toString(), "Ada");
    EXPECT_EQ(saved["layers"].toObject()["snow"].toString(), "snow.png");
    EXPECT_EQ(saved["definitions"][0]["comment"].toString(), "meadow");
    EXPECT_EQ(saved["tiling"].toInt(), 99);
}

TEST_F(ProjectFile, ASaveReplacesItsOwnLayersAndNothingElse) {
    Project project = captureProject(m_map, m_scene);
    save(project);
    writeFile(QDir(folder()).filePath("notes.png"), "mine");
    save(project);
    const QStringList files = QDir(folder()).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(files.join(' ').toStdString(),
              "blends.2.png colours.2.png heights.2.png notes.png project.json water.2.png");
}

TEST_F(ProjectFile, AFailedSaveLeavesTheOldProject) {
    Project project = captureProject(m_map, m_scene);
    save(project);
    const QByteArray before = readFile(projectFile());
    // A folder in the place of the next layer's temporary name cannot stop a save, but one in the place of
    // the project file can.
    Project second = project;
    QFile::remove(projectFile());
    QDir().mkpath(projectFile());
    const ProjectFault fault = writeProject(folder(), second);
    EXPECT_EQ(fault.path, projectFile());
    EXPECT_FALSE(fault.reason.isEmpty());
    QDir().rmdir(projectFile());
    writeFile(projectFile(), before);
    Project opened;
    EXPECT_EQ(readProject(folder(), opened).reason.toStdString(), "");
    EXPECT_EQ(opened.heights, project.heights);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 5) << "the layers of the failed save were left";
}

struct Damage {
    const char* name;
    std::function<void(QJsonObject&)> change;
    const char* reason;
};

TEST_F(ProjectFile, BadProjectFilesAreRefusedByName) {
    const Damage damages[] = {
        {"newer", [](QJsonObject& o) { o["version"] = 2; },
         "it was written by a newer version of this program (format 2, known up to 1)"},
        {"foreign", [](QJsonObject& o) { o["format"] = "tilemap"; }, "it is not a map project"},
        {"missing", [](QJsonObject& o) { o.remove("tiling"); }, "\"tiling\" is missing"},
        {"kind", [](QJsonObject& o) { o["fog"] = "yes"; }, "\"fog\" is not true or false"},
        {"range", [](QJsonObject& o) { o["tiling"] = 257; },
         "\"tiling\" is not a whole number from 1 to 256"},
        {"fraction", [](QJsonObject& o) { o["tiling"] = 1.5; },
         "\"tiling\" is not a whole number from 1 to 256"},
        {"colour", [](QJsonObject& o) { o["ambient"] = "#12345"; },
         "\"ambient\" is not a colour of the form #AARRGGBB"},
        {"escape",
         [](QJsonObject& o) {
             o["layers"] = QJsonObject{{"heights", "../secret.png"}};
         },
         "\"layers.heights\" is not a plain file name"},
        {"texture",
         [](QJsonObject& o) {
             o["baseTextures"] = QJsonObject{{"smooth", 2}};
         },
         "\"baseTextures.smooth\" is not a whole number from -1 to 1"},
        {"entry", [](QJsonObject& o) { o["definitions"] = QJsonArray{7}; },
         "\"definitions[0]\" is not an object"},
        {"filter",
         [](QJsonObject& o) {
             QJsonArray types = o["terrainTypes"].toArray();
             QJsonObject type = types[0].toObject();
             type["filter"] = QJsonArray{1, 2, 3};
             types[0] = type;
             o["terrainTypes"] = types;
         },
         "\"terrainTypes[0].filter\" does not have 25 numbers"},
    };
    Project project = captureProject(m_map, m_scene);
    save(project);
    const QJsonObject good = QJsonDocument::fromJson(readFile(projectFile())).object();
    for (const Damage& damage : damages) {
        QJsonObject json = good;
        damage.change(json);
        writeFile(projectFile(), QJsonDocument(json).toJson());
        Project untouched;
        const ProjectFault fault = readProject(folder(), untouched);
        EXPECT_EQ(fault.reason.toStdString(), damage.reason) << damage.name;
        EXPECT_EQ(fault.path, projectFile()) << damage.name;
        EXPECT_EQ(untouched.edge, 0) << damage.name;
    }
}

TEST_F(ProjectFile, CutAtEveryByteNothingIsHalfLoaded) {
    Project project = captureProject(m_map, m_scene);
    save(project);
    for (const QString& name : QDir(folder()).entryList(QDir::Files)) {
        const QString path = QDir(folder()).filePath(name);
        const QByteArray whole = readFile(path);
        const qsizetype end = name == PROJECT_FILE_NAME ? whole.size() - 3 : whole.size();
        for (qsizetype length = 0; length < end; length += name == PROJECT_FILE_NAME ? 7 : 1) {
            writeFile(path, whole.left(length));
            Project untouched;
            const ProjectFault fault = readProject(folder(), untouched);
            ASSERT_FALSE(fault.reason.isEmpty()) << name.toStdString() << " at " << length;
            ASSERT_EQ(fault.path, path);
            ASSERT_EQ(untouched.edge, 0);
        }
        writeFile(path, whole);
    }
}

TEST_F(ProjectFile, LayersMustFitEachOther) {
    Project project = captureProject(m_map, m_scene);
    save(project);
    CMemoryMap smaller(DIM / 2, &m_scene);
    Project other = captureProject(smaller, m_scene);
    const QString otherFolder = m_scratch.filePath("other");
    ASSERT_EQ(writeProject(otherFolder, other).reason.toStdString(), "");
    for (const QString& name : {project.settings.layers.blends, project.settings.layers.colours}) {
        const QString path = QDir(folder()).filePath(name);
        const QByteArray good = readFile(path);
        writeFile(path, readFile(QDir(otherFolder).filePath(name)));
        Project untouched;
        const ProjectFault fault = readProject(folder(), untouched);
        EXPECT_EQ(fault.path, path);
        EXPECT_EQ(fault.reason.toStdString(), "the picture is 5 x 5, which does not fit the map");
        writeFile(path, good);
    }
}

TEST_F(ProjectFile, TexturesComeAlong) {
    const QString images = m_scratch.filePath("images");
    QDir().mkpath(images);
    writeFile(QDir(images).filePath("GRASS.TGA"), "an image");
    CEngineDirectories::setDirectories({images.toStdString()});
    const Project project = captureProject(m_map, m_scene);
    EXPECT_EQ(copyTextures(project, folder()).reason.toStdString(), "");
    EXPECT_EQ(readFile(folder() + "/textures/grass.tga"), "an image");
    writeFile(folder() + "/textures/grass.tga", "changed by hand");
    EXPECT_EQ(copyTextures(project, folder()).reason.toStdString(), "");
    EXPECT_EQ(readFile(folder() + "/textures/grass.tga"), "changed by hand") << "an image there stays";
    CEngineDirectories::setDirectories({});
}

} // namespace
