#pragma once

#include "platform/dialog_template.h"
#include "platform/icon_image.h"

#include <cstddef>
#include <optional>
#include <span>

/// The library's own compiled resource file, embedded at build time; valid for the life of the process.
std::span<const std::byte> embeddedResources();

/// The dialog template with the given id from a compiled resource (.res) file.
/// Returns nothing when the file has no such dialog or when file or template is damaged.
std::optional<DialogTemplate> findDialog(std::span<const std::byte> resourceFile, int id);

/// The icon with the given id.
/// Returns nothing when the file has no such icon or when file or icon is damaged.
std::optional<IconImage> findIcon(std::span<const std::byte> resourceFile, int id);
