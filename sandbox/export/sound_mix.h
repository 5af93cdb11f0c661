#pragma once

#include "engine/qx_movie.h"

#include <QByteArray>
#include <QStringList>

/// What the sounds of a film make together: 44,100 Hz, stereo, 16 bits.

inline constexpr int MIX_RATE = 44'100;

/// Lay out the sounds of the film as its editor does when it opens; nothing while one is open, which has done
/// so.
void layOutSounds(qxCMovie& movie);

/// Mix the sounds of a movie as they were laid out, from its start to its end, on a device of its own that
/// nobody hears, and write them to `wave` as a WAV file. An entry whose file is not played is left out and
/// its name goes to `silent`. Returns why it could not be done, as a clause; empty when it could. Throws
/// std::bad_alloc.
QString mixSounds(qxCMovie& movie, QByteArray& wave, QStringList& silent);
