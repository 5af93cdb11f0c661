#pragma once

#include "engine/qx_api.h"

#include <string>

/// The engine's name string: a value that owns a zero-terminated text.
class QX_API qxCName {
public:
    qxCName();
    /// A copy of `text`; null counts as empty.
    explicit qxCName(const char* text);
    qxCName(const qxCName& other);
    qxCName& operator=(const qxCName& other);
    virtual ~qxCName();

    /// The text, never null, valid until the name changes.
    const char* getString() const;
    /// Replace the text; null counts as empty.
    void setString(const char* text);
    /// Whether the texts are the same, letter case included.
    bool operator==(const qxCName& other) const { return m_strText == other.m_strText; }

private:
    std::string m_strText;
};
