#pragma once

#include <QString>

/// The system's or a library's sentence as a clause that can stand behind a colon: they begin with a capital.
inline QString reasonText(const QString& sentence) {
    return sentence.left(1).toLower() + sentence.mid(1);
}
