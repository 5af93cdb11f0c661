#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// A rectangle in dialog units: a quarter of the font's average character width, an eighth of its height.
struct DialogRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// One control of a dialog template.
struct DialogItem {
    int id = -1; ///< -1 where the script gives IDC_STATIC
    DialogRect rect;
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    /// Class name as registered, whatever case the file has it in. The six predefined classes read "Button",
    /// "Edit", "Static", "ListBox", "ScrollBar" and "ComboBox", though the file has them as numbers.
    std::string windowClass;
    std::string text;         ///< UTF-8, with the & of its mnemonic
    int resourceOrdinal = -1; ///< the icon or bitmap that stands in place of a text, -1 for none
};

/// A dialog box as its designer laid it out. Items stand in tab order.
struct DialogTemplate {
    int id = 0;
    DialogRect rect;
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    std::string caption;  ///< UTF-8
    std::string fontFace; ///< empty when the template names no font
    int fontPointSize = 0;
    std::vector<DialogItem> items;
};

/// Reads the body of a dialog resource in its extended form (DLGTEMPLATEEX); the older plain form is refused.
/// Returns nothing when the data is damaged.
std::optional<DialogTemplate> readDialogTemplate(std::span<const std::byte> data, int id);
