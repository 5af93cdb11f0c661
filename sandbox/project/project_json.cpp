#include "sandbox/project/project_json.h"

#include "sandbox/project/film_json.h"
#include "sandbox/project/json_reader.h"
#include "sandbox/project/json_values.h"
#include "sandbox/project/project_limits.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

namespace {

constexpr const char* FORMAT_NAME = "vesk-map-project";
constexpr std::array<const char*, 3> BASE_TEXTURE_KEYS = {"smooth", "rough", "water"};
constexpr const char* CHECKSUMS = "checksums";
constexpr const char* OWN_CHECKSUM = "project";
constexpr const char* DETAILS = "details";
constexpr const char* FILM = "film";
constexpr int DETAIL_LIST_VERSION = 1; // the format that lists the details in the project file
constexpr int HIGHEST_TILING = 256;
// Whatever number a person types into the panel must come back, sensible or not.
constexpr double LARGEST_NUMBER = std::numeric_limits<float>::max();
constexpr double SMALLEST_SCALE = 1e-9;
constexpr int FILTER_SIZE = _qxMapTerrainDef::FILTER_EDGE * _qxMapTerrainDef::FILTER_EDGE;

void readLayers(CJsonReader reader, int version, ProjectLayers& layers) {
    layers.heights = reader.readFileName("heights");
    layers.blends = reader.readFileName("blends");
    layers.colours = reader.readFileName("colours");
    layers.water = reader.readFileName("water");
    if (version > DETAIL_LIST_VERSION) {
        layers.details = reader.readFileName(DETAILS);
    }
}

void readTextures(CJsonReader& reader, std::vector<ProjectTexture>& textures) {
    const QJsonArray list = reader.readList("textures", MOST_TEXTURES);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("textures", list, i);
        ProjectTexture texture;
        texture.name = entry.readText("name", LONGEST_NAME);
        texture.file = entry.readFileName("file");
        texture.size =
            static_cast<qxTextureSize>(entry.readInt("size", qxTextureSizeEmpty, qxTextureSize256));
        texture.format = static_cast<qxImagePixelFormat>(
            entry.readInt("format", qxPixelFormatAuto, qxPixelFormatRgba4444));
        textures.push_back(std::move(texture));
    }
}

void readDefinitions(CJsonReader& reader, std::vector<qxCMapMultiTexture>& definitions) {
    const QJsonArray list = reader.readList("definitions", MOST_DEFINITIONS);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("definitions", list, i);
        qxCMapMultiTexture definition;
        definition.tint1 = entry.readColour("tint1");
        definition.tint2 = entry.readColour("tint2");
        definition.blend = entry.readFloat("blend", -LARGEST_NUMBER, LARGEST_NUMBER);
        definition.variation = entry.readFloat("variation", -LARGEST_NUMBER, LARGEST_NUMBER);
        definitions.push_back(definition);
    }
}

void readTerrainTypes(CJsonReader& reader, std::vector<_qxMapTerrainDef>& types) {
    const QJsonArray list = reader.readList("terrainTypes", MOST_TERRAIN_TYPES);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("terrainTypes", list, i);
        _qxMapTerrainDef type;
        const QByteArray name = entry.readText("name", sizeof type.name - 1).toUtf8();
        std::memcpy(type.name, name.constData(), static_cast<std::size_t>(name.size()));
        type.preserveFlatAreas = entry.readBool("preserveFlatAreas");
        type.noise = entry.readFloat("noise", -LARGEST_NUMBER, LARGEST_NUMBER);
        type.effectOnNeighbours = entry.readFloat("effectOnNeighbours", -LARGEST_NUMBER, LARGEST_NUMBER);
        entry.readFloats("filter", type.filter, FILTER_SIZE, LARGEST_NUMBER);
        type.weighting = entry.readFloat("weighting", -LARGEST_NUMBER, LARGEST_NUMBER);
        types.push_back(type);
    }
}

void readDetails(CJsonReader& reader, int textureCount, std::vector<ProjectDetail>& details) {
    const QJsonArray list = reader.readList("details", MOST_DETAILS);
    for (int i = 0; i < list.size() && !reader.failed(); ++i) {
        CJsonReader entry = reader.entry("details", list, i);
        ProjectDetail detail;
        detail.texture = entry.readInt("texture", ProjectSettings::NO_TEXTURE, textureCount - 1);
        detail.type = entry.readBool("point") ? qxDetailTypePoint : qxDetailTypeQuad;
        detail.points = {entry.readVector("point0", LARGEST_NUMBER),
                         entry.readVector("point1", LARGEST_NUMBER),
                         entry.readVector("point2", LARGEST_NUMBER)};
        detail.scalar = entry.readFloat("scalar", -LARGEST_NUMBER, LARGEST_NUMBER);
        details.push_back(detail);
    }
}

void readSettings(CJsonReader& reader, int version, ProjectSettings& settings) {
    readLayers(reader.readObject("layers"), version, settings.layers);
    settings.waterLevel = reader.readFloat("waterLevel", -LARGEST_NUMBER, LARGEST_NUMBER);
    settings.heightScale = reader.readFloat("heightScale", SMALLEST_SCALE, LARGEST_NUMBER);
    settings.tiling = reader.readInt("tiling", 1, HIGHEST_TILING);
    settings.ambient = reader.readColour("ambient");
    settings.diffuse = reader.readColour("diffuse");
    settings.fog = reader.readBool("fog");
    settings.checker = reader.readBool("checker");
    readTextures(reader, settings.textures);
    const int textureCount = static_cast<int>(settings.textures.size());
    CJsonReader base = reader.readObject("baseTextures");
    for (std::size_t layer = 0; layer < BASE_TEXTURE_KEYS.size(); ++layer) {
        settings.baseTextures[layer] =
            base.readInt(BASE_TEXTURE_KEYS[layer], ProjectSettings::NO_TEXTURE, textureCount - 1);
    }
    readDefinitions(reader, settings.definitions);
    settings.currentDefinition = reader.readInt("currentDefinition", 0, MOST_DEFINITIONS);
    readTerrainTypes(reader, settings.terrainTypes);
    if (version <= DETAIL_LIST_VERSION) {
        readDetails(reader, textureCount, settings.details);
    }
    if (reader.contains(FILM)) { // a project from before there were films has none
        settings.film = readFilm(reader.readObject(FILM));
    }
}

QJsonObject textureText(const ProjectTexture& texture) {
    return {
        {"name", texture.name}, {"file", texture.file}, {"size", texture.size}, {"format", texture.format}};
}

QJsonObject definitionText(const qxCMapMultiTexture& definition) {
    return {{"tint1", colourText(definition.tint1)},
            {"tint2", colourText(definition.tint2)},
            {"blend", shortest(definition.blend)},
            {"variation", shortest(definition.variation)}};
}

QJsonObject terrainTypeText(const _qxMapTerrainDef& type) {
    return {
        {"name", QString::fromUtf8(type.name, static_cast<qsizetype>(strnlen(type.name, sizeof type.name)))},
        {"preserveFlatAreas", type.preserveFlatAreas},
        {"noise", shortest(type.noise)},
        {"effectOnNeighbours", shortest(type.effectOnNeighbours)},
        {"filter", listOf(type.filter, shortest)},
        {"weighting", shortest(type.weighting)}};
}

QJsonObject settingsText(const ProjectSettings& settings) {
    QJsonObject base;
    for (std::size_t layer = 0; layer < BASE_TEXTURE_KEYS.size(); ++layer) {
        base.insert(BASE_TEXTURE_KEYS[layer], settings.baseTextures[layer]);
    }
    QJsonObject text{{"format", FORMAT_NAME},
                     {"version", PROJECT_FORMAT_VERSION},
                     {"layers", QJsonObject{{"heights", settings.layers.heights},
                                            {"blends", settings.layers.blends},
                                            {"colours", settings.layers.colours},
                                            {"water", settings.layers.water},
                                            {DETAILS, settings.layers.details}}},
                     {"waterLevel", shortest(settings.waterLevel)},
                     {"heightScale", shortest(settings.heightScale)},
                     {"tiling", settings.tiling},
                     {"ambient", colourText(settings.ambient)},
                     {"diffuse", colourText(settings.diffuse)},
                     {"fog", settings.fog},
                     {"checker", settings.checker},
                     {"textures", listOf(settings.textures, textureText)},
                     {"baseTextures", base},
                     {"definitions", listOf(settings.definitions, definitionText)},
                     {"currentDefinition", settings.currentDefinition},
                     {"terrainTypes", listOf(settings.terrainTypes, terrainTypeText)}};
    if (settings.film) {
        text.insert(FILM, filmText(*settings.film));
    }
    return text;
}

/// `now`, with what only `before` holds.
QJsonValue keepUnknown(const QJsonValue& now, const QJsonValue& before) {
    if (now.isObject() && before.isObject()) {
        QJsonObject merged = before.toObject();
        const QJsonObject known = now.toObject();
        for (auto entry = known.begin(); entry != known.end(); ++entry) {
            merged.insert(entry.key(), keepUnknown(entry.value(), before[entry.key()]));
        }
        return merged;
    }
    if (now.isArray() && before.isArray() && now.toArray().size() == before.toArray().size()) {
        QJsonArray merged;
        for (qsizetype i = 0; i < now.toArray().size(); ++i) {
            merged.append(keepUnknown(now[i], before[i]));
        }
        return merged;
    }
    return now;
}

/// The sum of what a project file says, however it is laid out; `file` is without its checksums.
QString sumOfContents(const QJsonObject& file, const QJsonObject& layerSums) {
    QJsonObject summed = file;
    summed[CHECKSUMS] = layerSums;
    return checksumOf(QJsonDocument(summed).toJson(QJsonDocument::Compact));
}

/// Take the sums out of the file that was read. Returns the reason when they do not fit it.
QString takeChecksums(QJsonObject& file, ProjectChecksums& checksums) {
    if (!file.contains(CHECKSUMS)) {
        return {};
    }
    QJsonObject sums = file.take(CHECKSUMS).toObject();
    const QString own = sums.take(OWN_CHECKSUM).toString();
    if (own != sumOfContents(file, sums)) {
        return QString(
                   "it was changed or damaged after it was saved; to open it as it is, remove \"%1\" from it")
            .arg(CHECKSUMS);
    }
    for (auto sum = sums.begin(); sum != sums.end(); ++sum) {
        checksums[sum.key()] = sum.value().toString();
    }
    return {};
}

} // namespace

QString checksumOf(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

ProjectJsonReading parseProjectJson(const QByteArray& text) {
    ProjectJsonReading reading;
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        reading.error =
            QString("it is damaged: %1 at byte %2").arg(parseError.errorString()).arg(parseError.offset);
        return reading;
    }
    reading.original = document.object();
    CJsonReader reader(reading.original, QString(), reading.error);
    if (reading.original["format"].toString() != QLatin1String(FORMAT_NAME)) {
        reading.error = "it is not a map project";
        return reading;
    }
    const int version = reader.readInt("version", 1, std::numeric_limits<int>::max());
    if (version > PROJECT_FORMAT_VERSION) {
        reading.error =
            QString("it was written by a newer version of this program (format %1, known up to %2)")
                .arg(version)
                .arg(PROJECT_FORMAT_VERSION);
        return reading;
    }
    reading.error = takeChecksums(reading.original, reading.checksums);
    readSettings(reader, version, reading.settings);
    return reading;
}

QByteArray writeProjectJson(const ProjectSettings& settings, const QJsonObject& original,
                            const ProjectChecksums& layers) {
    QJsonObject former = original;
    former.remove(CHECKSUMS);
    former.remove(DETAILS); // of the first format
    const QJsonObject merged = keepUnknown(settingsText(settings), former).toObject();
    // What cannot be written in JSON is settled before the sum is taken.
    QJsonObject file = QJsonDocument::fromJson(QJsonDocument(merged).toJson(QJsonDocument::Compact)).object();
    QJsonObject sums;
    for (auto layer = layers.begin(); layer != layers.end(); ++layer) {
        sums[layer.key()] = layer.value();
    }
    sums[OWN_CHECKSUM] = sumOfContents(file, sums);
    file[CHECKSUMS] = sums;
    return QJsonDocument(file).toJson(QJsonDocument::Indented);
}
