#include "sandbox/film/film_record.h"
#include "sandbox/project/film_json.h"

#include <QJsonDocument>
#include <cstdint>
#include <cstdlib>

/// The film of a project file. What is read must become a movie that is written as the same text again.
namespace {

QByteArray textOf(const ProjectFilm& record) {
    CMemoryScene scene;
    const std::unique_ptr<CFilm> film = buildFilm(record, scene);
    film->movie().updateManual(1.0F);
    return QJsonDocument(filmText(captureFilm(*film))).toJson(QJsonDocument::Compact);
}

ProjectFilm read(const QByteArray& text, QString& error) {
    return readFilm(CJsonReader(QJsonDocument::fromJson(text).object(), "film.", error));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QString error;
    const ProjectFilm record = read(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), error);
    if (error.isEmpty()) {
        const QByteArray once = textOf(record);
        if (textOf(read(once, error)) != once || !error.isEmpty()) {
            std::abort();
        }
    }
    return 0;
}
