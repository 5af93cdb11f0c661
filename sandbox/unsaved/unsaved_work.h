#pragma once

#include "sandbox/project/automatic_copy.h"

#include <optional>
#include <vector>

class QWidget;

/// The copies of a map's unsaved work that programs left which came to an end that nobody wanted, the newest
/// first; of every map when `place` is empty.
std::vector<AbandonedCopy> abandonedCopies(const QString& place);

/// Ask a person about each of them, one after the other: which map, where it belongs, when and how large. What
/// is to be deleted is deleted, what is put off stays. Ends with the copy that is to be opened, if any.
std::optional<AbandonedCopy> askAboutCopies(QWidget& window, const std::vector<AbandonedCopy>& copies);
