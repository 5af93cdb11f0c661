#include "platform/resources.h"

#include "platform/byte_reader.h"

#include <cstdlib>
#include <utility>

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

/// The id of the best image of an icon group.
std::optional<int> bestIconOf(std::span<const std::byte> group, int desiredSize) {
    CByteReader reader(group);
    reader.readU16(); // reserved
    const bool isIcon = reader.readU16() == 1;
    const int count = reader.readU16();
    std::optional<int> best;
    std::pair<int, int> bestRank; // distance in quarter pixels with the smaller side handicapped, then depth
    for (int i = 0; i < count && isIcon && !reader.failed(); ++i) {
        const int storedWidth = reader.readU8();
        const int width = storedWidth == 0 ? 256 : storedWidth;
        reader.skip(5); // height, colours, reserved, planes
        const int depth = reader.readU16();
        reader.readU32(); // size in bytes
        const int id = reader.readU16();
        const int difference = width - desiredSize;
        const std::pair<int, int> rank = {2 * std::abs(difference) + (difference < 0 ? 1 : 0), -depth};
        if (!best || rank < bestRank) {
            best = id;
            bestRank = rank;
        }
    }
    return reader.failed() ? std::nullopt : best;
}

} // namespace

std::optional<DialogTemplate> findDialog(std::span<const std::byte> resourceFile, int id) {
    const auto data = findResource(resourceFile, TYPE_DIALOG, id);
    return data ? readDialogTemplate(*data, id) : std::nullopt;
}

std::optional<IconImage> findIcon(std::span<const std::byte> resourceFile, int id, int desiredSize) {
    const auto group = findResource(resourceFile, TYPE_ICON_GROUP, id);
    const auto best = group ? bestIconOf(*group, desiredSize) : std::nullopt;
    const auto data = best ? findResource(resourceFile, TYPE_ICON, *best) : std::nullopt;
    return data ? readIconImage(*data) : std::nullopt;
}
