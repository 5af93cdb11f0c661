#pragma once

#include <optional>
#include <span>

class CComboBox;

/// An entry of a list to choose from, and the engine's value behind it.
struct ComboItem {
    const char* caption;
    int value;
};

/// Append the entries to the list.
void addItems(CComboBox& box, std::span<const ComboItem> items);
/// Select the first entry with this value, or none when there is no such entry.
void selectValue(CComboBox& box, int value);
/// The value of the chosen entry; nothing when no entry is chosen.
std::optional<int> chosenValue(const CComboBox& box);
