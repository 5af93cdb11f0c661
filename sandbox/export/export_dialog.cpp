#include "sandbox/export/export_dialog.h"

#include "sandbox/export/film_export.h"
#include "sandbox/progress/progress_window.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QRegularExpression>
#include <new>
#include <optional>

namespace {

void say(QWidget& parent, QMessageBox::Icon icon, const QString& text) {
    QMessageBox(icon, QObject::tr("Export Film"), text, QMessageBox::Ok, &parent).exec();
}

QString askFolder(QWidget& parent, const QString& begin) {
    QFileDialog dialog(&parent, QObject::tr("Export Film"), begin, QObject::tr("Folders of films (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::FileName, QObject::tr("New folder:"));
    dialog.selectFile("film");
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().first() : QString();
}

/// One of the usual sizes, or another that is typed. An invalid one was typed wrong.
std::optional<QSize> askSize(QWidget& parent) {
    static const QRegularExpression PATTERN(R"(^\s*(\d+)\s*x\s*(\d+)\s*$)");
    bool accepted = false;
    const QString text =
        QInputDialog::getItem(&parent, QObject::tr("Export Film"), QObject::tr("Size of the pictures:"),
                              {"640 x 360", "1280 x 720", "1920 x 1080", "3840 x 2160"}, 1, true, &accepted);
    const QRegularExpressionMatch match = PATTERN.match(text);
    return accepted ? std::optional(QSize(match.captured(1).toInt(), match.captured(2).toInt()))
                    : std::nullopt;
}

FilmExported exportInSight(QWidget& parent, CMemoryMap& map, CFilm& film, const FilmExport& wanted) {
    QProgressDialog progress(QObject::tr("Writing the film..."), QObject::tr("Cancel"), 0, 0, &parent);
    progress.setWindowTitle(QObject::tr("Export Film"));
    progress.setObjectName("export-progress");
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    QElapsedTimer clock;
    clock.start();
    try {
        return exportFilm(map, film, wanted, [&](int done, int all) {
            progress.setMaximum(all);
            progress.setLabelText(
                QObject::tr("Writing the film...") + '\n' +
                timeLeft(static_cast<double>(clock.elapsed()) / 1000.0, static_cast<double>(done) / all));
            progress.setValue(done); // sees to the events too
            return !progress.wasCanceled();
        });
    } catch (const std::bad_alloc&) {
        return {QObject::tr("There is not enough memory for the film."), {}};
    }
}

} // namespace

void askToExportFilm(QWidget& parent, CMemoryMap& map, CFilm& film, const ViewOptions& options,
                     const QString& begin) {
    if (film.movie().isPlaying()) {
        say(parent, QMessageBox::Information, QObject::tr("The film is playing. Stop it first."));
        return;
    }
    const QString folder = askFolder(parent, begin);
    const std::optional<QSize> size = folder.isEmpty() ? std::nullopt : askSize(parent);
    if (!size) {
        return;
    }
    const FilmExported exported = exportInSight(parent, map, film, {folder, *size, options});
    if (!exported.error.isEmpty()) {
        say(parent, QMessageBox::Warning, exported.error);
    } else if (exported.calledOff) {
        say(parent, QMessageBox::Information,
            QObject::tr("The export was called off. Nothing of it is left."));
    } else {
        const QString silent = exported.silent.isEmpty()
                                   ? QString()
                                   : QObject::tr(" Not played: %1.").arg(exported.silent.join(", "));
        say(parent, QMessageBox::Information, QObject::tr("The film is in %1.").arg(folder) + silent);
    }
}
