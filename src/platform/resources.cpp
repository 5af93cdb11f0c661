#include "platform/resources.h"

#include "platform/byte_reader.h"

namespace {

constexpr int TYPE_ICON = 3;
constexpr int TYPE_DIALOG = 5;
constexpr int TYPE_ICON_GROUP = 14;

struct ResourceEntry {
    ResourceName type;
    ResourceName name;
    std::span<const std::byte> data;
};

/// The next entry of a resource file; nothing when it is damaged.
std::optional<ResourceEntry> readEntry(CByteReader& reader) {
    const std::size_t start = reader.position();
    const std::uint32_t dataSize = reader.readU32();
    const std::uint32_t headerSize = reader.readU32();
    ResourceEntry entry;
    entry.type = readResourceName(reader);
    entry.name = readResourceName(reader);
    reader.alignToDword();
    reader.skip(16); // data version, memory flags, language, version, characteristics
    if (reader.failed() || reader.position() - start != headerSize) {
        return std::nullopt;
    }
    entry.data = reader.readBytes(dataSize);
    reader.alignToDword();
    if (reader.failed()) {
        return std::nullopt;
    }
    return entry;
}

/// The data of the first resource of a type and id. The whole file is walked, so that a damaged one is never
/// taken for one that lacks the resource or has it.
std::optional<std::span<const std::byte>> findResource(std::span<const std::byte> file, int type, int id) {
    std::optional<std::span<const std::byte>> found;
    CByteReader reader(file);
    while (reader.remaining() > 0) {
        const auto entry = readEntry(reader);
        if (!entry) {
            return std::nullopt;
        }
        if (!found && entry->type.ordinal == type && entry->name.ordinal == id) {
            found = entry->data;
        }
    }
    return found;
}

/// The id of an icon group's image; the library's icons have one each.
std::optional<int> imageOf(std::span<const std::byte> group) {
    CByteReader reader(group);
    reader.readU16(); // reserved
    const bool isIcon = reader.readU16() == 1;
    const int count = reader.readU16();
    reader.skip(12); // size, colours, planes, depth, size in bytes
    const int id = reader.readU16();
    return reader.failed() || !isIcon || count < 1 ? std::nullopt : std::optional(id);
}

} // namespace

std::optional<DialogTemplate> findDialog(std::span<const std::byte> resourceFile, int id) {
    const auto data = findResource(resourceFile, TYPE_DIALOG, id);
    return data ? readDialogTemplate(*data, id) : std::nullopt;
}

std::optional<IconImage> findIcon(std::span<const std::byte> resourceFile, int id) {
    const auto group = findResource(resourceFile, TYPE_ICON_GROUP, id);
    const auto image = group ? imageOf(*group) : std::nullopt;
    const auto data = image ? findResource(resourceFile, TYPE_ICON, *image) : std::nullopt;
    return data ? readIconImage(*data) : std::nullopt;
}
