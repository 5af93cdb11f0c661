#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_vector3d.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// Reads one object of a project file. The first value that is missing, of the wrong kind or out of range is
/// remembered as the error; from then on every read gives a default. Lives for one parse, shares its error
/// with the readers of the objects inside.
class CJsonReader {
public:
    CJsonReader(const QJsonObject& object, QString path, QString& error);

    bool failed() const { return !m_error.isEmpty(); }
    void fail(const QString& key, const QString& reason);
    bool contains(const char* key) const { return m_object.contains(QLatin1String(key)); }

    int readInt(const char* key, int lowest, int highest);
    /// A finite number between the two, in float precision.
    float readFloat(const char* key, double lowest, double highest);
    bool readBool(const char* key);
    QString readText(const char* key, int longest);
    /// A text that is a file name without a directory.
    QString readFileName(const char* key);
    /// "#AARRGGBB".
    qxCColour readColour(const char* key);
    /// [x, y, z]
    qxCVector3d readVector(const char* key, double limit);
    CJsonReader readObject(const char* key);
    QJsonArray readList(const char* key, int longest);
    /// Numbers of a list of exactly `count`.
    void readFloats(const char* key, float* values, int count, double limit);
    /// The reader of entry `index` of a list that readList gave.
    CJsonReader entry(const char* key, const QJsonArray& list, int index);

private:
    QJsonValue require(const char* key, QJsonValue::Type type, const char* kind);
    float toFloat(const QJsonValue& value, const QString& key, double lowest, double highest);

    QJsonObject m_object;
    QString m_strPath; ///< where this object stands in the file, "" or "details[3]."
    QString& m_error;
};
