#include "sandbox/app/film_command.h"

#include "sandbox/app/map_document.h"
#include "sandbox/export/film_export.h"

#include <cstdio>

namespace {

int fail(const QString& error) {
    std::fprintf(stderr, "%s\n", qPrintable(error));
    return 1;
}

} // namespace

int writeFilm(const QString& project, const QString& folder, QSize size) {
    CMapDocument document;
    const CMapDocument::Outcome opened = document.open(project, [] {});
    if (!opened.error.isEmpty()) {
        return fail(opened.error);
    }
    const FilmExported exported = exportFilm(document.map(), document.film(), {folder, size, {}},
                                             [](int /*done*/, int /*all*/) { return true; });
    if (!exported.error.isEmpty()) {
        return fail(exported.error);
    }
    for (const QString& name : exported.silent) {
        std::fprintf(stderr, "%s is not played and is not in the sound.\n", qPrintable(name));
    }
    std::printf("%d pictures and %s in %s\n", document.film().movie().getNumFrames(), FILM_SOUND_NAME,
                qPrintable(folder));
    return 0;
}
