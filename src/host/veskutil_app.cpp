#include "platform/framework.h"

namespace {

/// The library's application object: made when the library is loaded, gone when the process ends.
CWinApp theApp;

} // namespace
