#include "sandbox/project/detail_layer.h"

#include "sandbox/project/project_limits.h"

#include <QtEndian>
#include <array>
#include <bit>
#include <cmath>

namespace {

// All numbers are little-endian.
constexpr std::array<char, 8> MAGIC{'V', 'E', 'S', 'K', 'D', 'E', 'T', '1'};
constexpr qsizetype HEADER_SIZE = 12; // the magic, then the number of details
constexpr qsizetype DETAIL_SIZE = 48; // texture, type, nine coordinates, scalar
constexpr qint32 NO_TEXTURE = ProjectSettings::NO_TEXTURE;

class CWriter {
public:
    explicit CWriter(char* at) : m_pAt(at) {}
    void put(qint32 value) {
        qToLittleEndian(value, m_pAt);
        m_pAt += sizeof value;
    }
    void put(float value) { put(std::bit_cast<qint32>(value)); }
    void put(const qxCVector3d& point) {
        put(point.x);
        put(point.y);
        put(point.z);
    }

private:
    char* m_pAt;
};

class CReader {
public:
    explicit CReader(const char* at) : m_pAt(at) {}
    qint32 getInt() {
        const auto value = qFromLittleEndian<qint32>(m_pAt);
        m_pAt += sizeof value;
        return value;
    }
    float getFloat() {
        const auto value = std::bit_cast<float>(getInt());
        m_bFinite = m_bFinite && std::isfinite(value);
        return value;
    }
    qxCVector3d getPoint() {
        const float x = getFloat();
        const float y = getFloat();
        const float z = getFloat();
        return {x, y, z};
    }
    /// All floats so far were numbers.
    bool isFinite() const { return m_bFinite; }

private:
    const char* m_pAt;
    bool m_bFinite = true;
};

/// JSON's numbers end there too: an infinity that a panel was made to hold comes back as the largest number.
float finite(float value) {
    if (std::isfinite(value)) {
        return value;
    }
    return std::isnan(value) ? 0.0F : std::copysign(std::numeric_limits<float>::max(), value);
}

qxCVector3d finite(const qxCVector3d& point) {
    return {finite(point.x), finite(point.y), finite(point.z)};
}

} // namespace

QByteArray encodeDetails(const std::vector<ProjectDetail>& details) {
    QByteArray bytes(HEADER_SIZE + static_cast<qsizetype>(details.size()) * DETAIL_SIZE, Qt::Uninitialized);
    std::ranges::copy(MAGIC, bytes.data());
    CWriter writer(bytes.data() + MAGIC.size());
    writer.put(static_cast<qint32>(details.size()));
    for (const ProjectDetail& detail : details) {
        writer.put(static_cast<qint32>(detail.texture));
        writer.put(static_cast<qint32>(detail.type));
        for (const qxCVector3d& point : detail.points) {
            writer.put(finite(point));
        }
        writer.put(finite(detail.scalar));
    }
    return bytes;
}

QString decodeDetails(const QByteArray& bytes, int textureCount, std::vector<ProjectDetail>& details) {
    if (bytes.size() < HEADER_SIZE || !isDetailLayer(bytes)) {
        return "it is not a layer of details";
    }
    CReader reader(bytes.constData() + MAGIC.size());
    const qint32 count = reader.getInt();
    if (count < 0 || count > MOST_DETAILS) {
        return QString("it has %1 details; a project has at most %2").arg(count).arg(MOST_DETAILS);
    }
    if (bytes.size() != HEADER_SIZE + count * DETAIL_SIZE) {
        return QString("its length does not fit its %1 details").arg(count);
    }
    std::vector<ProjectDetail> read(static_cast<std::size_t>(count));
    for (ProjectDetail& detail : read) {
        detail.texture = reader.getInt();
        const qint32 type = reader.getInt();
        detail.type = static_cast<qxDetailType>(type);
        for (qxCVector3d& point : detail.points) {
            point = reader.getPoint();
        }
        detail.scalar = reader.getFloat();
        const bool isTexture = detail.texture >= NO_TEXTURE && detail.texture < textureCount;
        const bool isType = type == qxDetailTypeQuad || type == qxDetailTypePoint;
        if (!isTexture || !isType || !reader.isFinite()) {
            return QString("detail %1 is not possible").arg(&detail - read.data());
        }
    }
    details = std::move(read);
    return {};
}

bool isDetailLayer(const QByteArray& bytes) {
    const auto known = std::min(bytes.size(), static_cast<qsizetype>(MAGIC.size()));
    return std::equal(bytes.begin(), bytes.begin() + known, MAGIC.begin());
}
