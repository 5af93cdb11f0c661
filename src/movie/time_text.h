#pragma once

#include <string>

class qxCMovie;

/// The start of a frame as minutes, seconds and hundredths, "01:15.00". It is rounded to tenths, and a
/// fraction that rounds up to a whole second is carried. A time before the movie has one minus sign in front,
/// unless it rounds to 0. A step rate that gives no time within an int of seconds gives "00:00.00".
std::string formatTime(int frame, float stepRate);

/// What a movie editor shows of its selection: the time of the current frame, or of both ends of the range
/// with a hyphen between; in a movie of one frame always the time of that frame.
std::string selectionTime(const qxCMovie& movie);
