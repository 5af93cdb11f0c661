#pragma once

#include <cstddef>

/// Watches every operator new of the process, those of the libraries included.
namespace allocation_watch {

/// Forget what was seen.
void restart();

/// Bytes of the largest single allocation since the restart.
std::size_t largest();

} // namespace allocation_watch
