#include "sandbox/project/json_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

CJsonReader::CJsonReader(const QJsonObject& object, QString path, QString& error)
    : m_object(object), m_strPath(std::move(path)), m_error(error) {}

void CJsonReader::fail(const QString& key, const QString& reason) {
    if (m_error.isEmpty()) {
        m_error = QString("\"%1%2\" %3").arg(m_strPath, key, reason);
    }
}

QJsonValue CJsonReader::require(const char* key, QJsonValue::Type type, const char* kind) {
    const QJsonValue value = m_object.value(QLatin1String(key));
    if (value.isUndefined()) {
        fail(key, "is missing");
    } else if (value.type() != type) {
        fail(key, QString("is not %1").arg(kind));
    }
    return value;
}

float CJsonReader::toFloat(const QJsonValue& value, const QString& key, double lowest, double highest) {
    const double number = value.toDouble(std::nan(""));
    if (number >= lowest && number <= highest) {
        return static_cast<float>(number);
    }
    fail(key, QString("is not a number from %1 to %2").arg(lowest).arg(highest));
    return static_cast<float>(lowest);
}

int CJsonReader::readInt(const char* key, int lowest, int highest) {
    const double number = require(key, QJsonValue::Double, "a number").toDouble(lowest);
    if (number >= lowest && number <= highest && number == std::floor(number)) {
        return static_cast<int>(number);
    }
    fail(key, QString("is not a whole number from %1 to %2").arg(lowest).arg(highest));
    return lowest;
}

float CJsonReader::readFloat(const char* key, double lowest, double highest) {
    return toFloat(require(key, QJsonValue::Double, "a number"), key, lowest, highest);
}

bool CJsonReader::readBool(const char* key) {
    return require(key, QJsonValue::Bool, "true or false").toBool();
}

QString CJsonReader::readText(const char* key, int longest) {
    const QString text = require(key, QJsonValue::String, "a text").toString();
    if (text.toUtf8().size() > longest) {
        fail(key, QString("is longer than %1 bytes").arg(longest));
        return {};
    }
    return text;
}

QString CJsonReader::readFileName(const char* key) {
    constexpr int LONGEST_NAME = 255;
    const QString name = readText(key, LONGEST_NAME);
    const auto refused = [](QChar c) { return c == '/' || c == '\\' || c == ':' || c.unicode() < ' '; };
    if (name == "." || name == ".." || std::any_of(name.begin(), name.end(), refused)) {
        fail(key, "is not a plain file name");
        return {};
    }
    return name;
}

qxCColour CJsonReader::readColour(const char* key) {
    const QString text = require(key, QJsonValue::String, "a colour").toString();
    bool isNumber = false;
    const uint value = text.mid(1).toUInt(&isNumber, 16);
    if (text.size() != 9 || text[0] != '#' || !isNumber) {
        fail(key, "is not a colour of the form #AARRGGBB");
        return {};
    }
    const auto channel = [value](int shift) { return static_cast<int>(value >> shift & 0xFFU); };
    return {channel(16), channel(8), channel(0), channel(24)};
}

qxCVector3d CJsonReader::readVector(const char* key, double limit) {
    std::array<float, 3> values{};
    readFloats(key, values.data(), 3, limit);
    return {values[0], values[1], values[2]};
}

CJsonReader CJsonReader::readObject(const char* key) {
    const QJsonValue value = require(key, QJsonValue::Object, "an object");
    return {value.toObject(), m_strPath + key + ".", m_error};
}

QJsonArray CJsonReader::readList(const char* key, int longest) {
    const QJsonArray list = require(key, QJsonValue::Array, "a list").toArray();
    if (list.size() > longest) {
        fail(key, QString("has more than %1 entries").arg(longest));
        return {};
    }
    return list;
}

void CJsonReader::readFloats(const char* key, float* values, int count, double limit) {
    const QJsonArray list = readList(key, count);
    if (list.size() != count) {
        fail(key, QString("does not have %1 numbers").arg(count));
        return;
    }
    for (int i = 0; i < count; ++i) {
        values[i] = toFloat(list[i], QString("%1[%2]").arg(key).arg(i), -limit, limit);
    }
}

CJsonReader CJsonReader::entry(const char* key, const QJsonArray& list, int index) {
    const QString name = QString("%1[%2]").arg(key).arg(index);
    if (!list[index].isObject()) {
        fail(name, "is not an object");
    }
    return {list[index].toObject(), m_strPath + name + ".", m_error};
}
