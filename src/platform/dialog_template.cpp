#include "platform/dialog_template.h"

#include "platform/byte_reader.h"

#include <array>

namespace {

constexpr std::uint16_t extendedVersion = 1;
constexpr std::uint16_t extendedSignature = 0xFFFF;
constexpr std::uint32_t styleHasFont = 0x40;
constexpr int firstClassAtom = 0x80;
/// The first six have an atom each, from firstClassAtom on.
constexpr std::array registeredClasses = {"Button",
                                          "Edit",
                                          "Static",
                                          "ListBox",
                                          "ScrollBar",
                                          "ComboBox",
                                          "msctls_updown32",
                                          "msctls_trackbar32",
                                          "msctls_progress32",
                                          "SysTabControl32"};
constexpr std::size_t classAtoms = 6;

DialogRect readRect(ByteReader& reader) {
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
        for (const char* registered : registeredClasses) {
            if (equalsIgnoringCase(name.text, registered)) {
                return registered;
            }
        }
        return name.text;
    }
    const auto index = static_cast<std::size_t>(name.ordinal - firstClassAtom);
    return name.ordinal >= firstClassAtom && index < classAtoms ? registeredClasses[index] : "";
}

std::optional<DialogItem> readItem(ByteReader& reader) {
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

void readFont(ByteReader& reader, DialogTemplate& dialog) {
    dialog.fontPointSize = reader.readU16();
    reader.readU16(); // weight
    reader.readU8();  // italic
    reader.readU8();  // character set
    dialog.fontFace = reader.readUtf16Text();
}

} // namespace

std::optional<DialogTemplate> readDialogTemplate(std::span<const std::byte> data, int id) {
    ByteReader reader(data);
    if (reader.readU16() != extendedVersion || reader.readU16() != extendedSignature) {
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
    if ((dialog.style & styleHasFont) != 0) {
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
