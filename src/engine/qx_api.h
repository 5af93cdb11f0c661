#pragma once

/// Marks what the engine libraries export. The toolkit only imports these.
#define QX_API __attribute__((visibility("default")))
