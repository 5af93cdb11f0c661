#include "sandbox/export/film_export.h"

#include "sandbox/core/png_picture.h"
#include "sandbox/export/film_pictures.h"
#include "sandbox/export/sound_mix.h"
#include "sandbox/files/file_operations.h"
#include "sandbox/files/safe_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstring>

namespace {

/// The folder of an export: what was put into it goes again unless it is kept.
class CExportFolder {
public:
    explicit CExportFolder(const QString& path) : m_strPath(path) {}
    ~CExportFolder();
    CExportFolder(const CExportFolder&) = delete;
    CExportFolder& operator=(const CExportFolder&) = delete;

    /// Each returns what to tell on failure.
    QString prepare();
    QString add(const QString& name, QByteArrayView bytes);
    void keep() { m_written.clear(), m_bMade = false; }

private:
    QString m_strPath;
    QStringList m_written;
    bool m_bMade = false;
};

CExportFolder::~CExportFolder() {
    for (const QString& path : m_written) {
        static_cast<void>(removeFile(path)); // the failure that led here is the one to tell
    }
    if (m_bMade) {
        CFileOperations::instance().removeFolder(QFile::encodeName(m_strPath).constData());
    }
}

QString CExportFolder::prepare() {
    const QFileInfo info(m_strPath);
    if (info.isDir() && !QDir(m_strPath).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
        return QString("%1 is not empty. A film goes into a folder of its own.").arg(m_strPath);
    }
    const QString reason = makeFolder(m_strPath, m_bMade);
    return reason.isEmpty() ? QString() : QString("%1 cannot be made: %2.").arg(m_strPath, reason);
}

QString CExportFolder::add(const QString& name, QByteArrayView bytes) {
    const QString path = QDir(m_strPath).filePath(name);
    bool taken = false;
    const QString reason = makeFile(path, bytes, taken);
    if (!reason.isEmpty()) {
        return QString("%1 cannot be written: %2.").arg(path, reason);
    }
    m_written.append(path);
    return {};
}

QString addPicture(CExportFolder& folder, const QString& name, const QImage& image) {
    PngPicture picture{image.width(), image.height(), PngKind::COLOUR, {}};
    const auto row = static_cast<std::size_t>(image.width()) * 4;
    picture.pixels.resize(row * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(picture.pixels.data() + row * static_cast<std::size_t>(y), image.constScanLine(y), row);
    }
    const auto png = encodePng({picture.width, picture.height, picture.kind, picture.pixels});
    return png ? folder.add(name, {png->data(), static_cast<qsizetype>(png->size())})
               : QString("%1 cannot be written: there is not enough memory.").arg(name);
}

/// One export, step by step; each step ends it by an error or by calling it off.
class CFilmExporter {
public:
    CFilmExporter(CMemoryMap& map, CFilm& film, const FilmExport& wanted, const ExportProgress& progress)
        : m_folder(wanted.folder)
        , m_pictures(map, film, wanted.size, wanted.options)
        , m_film(film)
        , m_progress(progress) {}

    FilmExported run();

private:
    bool writePictures();
    bool writeSound();
    bool goOn();
    /// Take over what went wrong, if anything did. True when nothing did.
    bool passes(const QString& error);

    CExportFolder m_folder;
    CFilmPictures m_pictures;
    CFilm& m_film;
    const ExportProgress& m_progress;
    FilmExported m_result;
    int m_nDone = 0;
};

FilmExported CFilmExporter::run() {
    if (!m_pictures.failure().isEmpty()) {
        passes(QString("The film cannot be drawn: %1.").arg(m_pictures.failure()));
    } else if (const QString error = m_folder.prepare(); !error.isEmpty()) {
        passes(error);
    } else if (writeSound() && writePictures()) {
        m_folder.keep();
    }
    return m_result;
}

bool CFilmExporter::passes(const QString& error) {
    m_result.error = error;
    return error.isEmpty();
}

bool CFilmExporter::goOn() {
    m_result.calledOff = !m_progress(++m_nDone, m_film.movie().getNumFrames() + 1);
    return !m_result.calledOff;
}

bool CFilmExporter::writeSound() {
    layOutSounds(m_film.movie());
    QByteArray wave;
    if (const QString reason = mixSounds(m_film.movie(), wave, m_result.silent); !reason.isEmpty()) {
        return passes(QString("The sounds cannot be mixed: %1.").arg(reason));
    }
    return passes(m_folder.add(FILM_SOUND_NAME, wave)) && goOn();
}

bool CFilmExporter::writePictures() {
    for (int frame = 0; frame < m_film.movie().getNumFrames(); ++frame) {
        if (!passes(addPicture(m_folder, pictureName(frame), m_pictures.draw(frame))) || !goOn()) {
            return false;
        }
    }
    return true;
}

} // namespace

QString pictureName(int frame) {
    return QString("frame-%1.png").arg(frame, 5, 10, QChar('0'));
}

FilmExported exportFilm(CMemoryMap& map, CFilm& film, const FilmExport& wanted,
                        const ExportProgress& progress) {
    return CFilmExporter(map, film, wanted, progress).run();
}
