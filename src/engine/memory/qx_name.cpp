#include "engine/qx_name.h"

qxCName::qxCName() = default;

qxCName::qxCName(const char* text) : m_strText(text != nullptr ? text : "") {}

qxCName::qxCName(const qxCName& other) = default;

qxCName& qxCName::operator=(const qxCName& other) = default;

qxCName::~qxCName() = default;

const char* qxCName::getString() const {
    return m_strText.c_str();
}

void qxCName::setString(const char* text) {
    // By way of a copy: the text may point into this name.
    m_strText = std::string(text != nullptr ? text : "");
}
