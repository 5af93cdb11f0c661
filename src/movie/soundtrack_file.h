#pragma once

#include <string>

/// Playing time in seconds of the WAV file that the engine finds under that name: the bytes of its samples,
/// at most those that the file has, by the bytes a second that its header states. 0 for a file that the
/// engine does not find, that is no WAV file, or that states no bytes a second. Downsampling does not change
/// it.
float measureWaveLength(const char* name);

/// Why the file would be silent in a soundtrack, in words for a person; empty when nothing speaks against it.
/// The device has the last word, which only a loaded sound tells.
std::string whySilent(const char* name);
