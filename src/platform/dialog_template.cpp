#include "platform/dialog_template.h"

#include "platform/byte_reader.h"

#include <array>

namespace {

constexpr std::uint16_t EXTENDED_VERSION = 1;
constexpr std::uint16_t EXTENDED_SIGNATURE = 0xFFFF;
constexpr std::uint32_t STYLE_HAS_FONT = 0x40;
constexpr int FIRST_CLASS_ATOM = 0x80;
/// The first six have an atom each, from firstClassAtom on.
constexpr std::array REGISTERED_CLASSES = {"Button",
                                           "Edit",
                                           "Static",
                                           "ListBox",
                                           "ScrollBar",
                                           "ComboBox",
                                           "msctls_updown32",
                                           "msctls_trackbar32",
                                           "msctls_progress32",
                                           "SysTabControl32"};
constexpr std::size_t CLASS_ATOMS = 6;

DialogRect readRect(CByteReader& reader) {
    DialogRect rect;
    rect.x = reader.readI16();
    rect.y = reader.readI16();
    rect.width = reader.readI16();
    rect.height = reader.readI16();
    return rect;
}

/// Class names are told apart without regard to case, and resource compilers change it.
bool equalsIgnoringCase(const std::string& a, const char* b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    for (const char c : a) {
        if (*b == '\0' || lower(c) != lower(*b++)) {
            return false;
        }
    }
    return *b == '\0';
}

/// The class name, or an empty text for an atom that stands for none.
std::string classNameOf(const ResourceName& name) {
    if (name.ordinal < 0) {
        for (const char* registered : REGISTERED_CLASSES) {
            if (equalsIgnoringCase(name.text, registered)) {
                return registered;
            }
        }
        return name.text;
    }
    const auto index = static_cast<std::size_t>(name.ordinal - FIRST_CLASS_ATOM);
    return name.ordinal >= FIRST_CLASS_ATOM && index < CLASS_ATOMS ? REGISTERED_CLASSES[index] : "";
}

std::optional<DialogItem> readItem(CByteReader& reader) {
    reader.alignToDword();
    DialogItem item;
    reader.readU32(); // help id
    item.exStyle = reader.readU32();
    item.style = reader.readU32();
    item.rect = readRect(reader);
    item.id = reader.readI32();
    item.windowClass = classNameOf(readResourceName(reader));
    ResourceName title = readResourceName(reader);
    item.text = std::move(title.text);
    item.resourceOrdinal = title.ordinal;
    reader.skip(reader.readU16()); // creation data
    if (reader.failed() || item.windowClass.empty()) {
        return std::nullopt;
    }
    return item;
}

void readFont(CByteReader& reader, DialogTemplate& dialog) {
    dialog.fontPointSize = reader.readU16();
    reader.readU16(); // weight
    reader.readU8();  // italic
    reader.readU8();  // character set
    dialog.fontFace = reader.readUtf16Text();
}

} // namespace

std::optional<DialogTemplate> readDialogTemplate(std::span<const std::byte> data, int id) {
    CByteReader reader(data);
    if (reader.readU16() != EXTENDED_VERSION || reader.readU16() != EXTENDED_SIGNATURE) {
        return std::nullopt;
    }
    DialogTemplate dialog;
    dialog.id = id;
    reader.readU32(); // help id
    dialog.exStyle = reader.readU32();
    dialog.style = reader.readU32();
    const int itemCount = reader.readU16();
    dialog.rect = readRect(reader);
    readResourceName(reader); // menu
    readResourceName(reader); // window class
    dialog.caption = reader.readUtf16Text();
    if ((dialog.style & STYLE_HAS_FONT) != 0) {
        readFont(reader, dialog);
    }
    for (int i = 0; i < itemCount; ++i) {
        auto item = readItem(reader);
        if (!item) {
            return std::nullopt;
        }
        dialog.items.push_back(std::move(*item));
    }
    if (reader.failed()) {
        return std::nullopt;
    }
    return dialog;
}
