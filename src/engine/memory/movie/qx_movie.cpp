#include "engine/qx_movie.h"

namespace {

qxCMovie::Callback g_movieCallback = nullptr;

} // namespace

void qxCMovie::setCallback(Callback callback) {
    g_movieCallback = callback;
}

qxCMovie::Callback qxCMovie::getCallback() {
    return g_movieCallback;
}

qxCMovieSound::qxCMovieSound(const char* fileName)
    : m_strName(fileName != nullptr ? fileName : ""), name(m_strName.c_str()) {}

qxCMovieSound::~qxCMovieSound() = default;
