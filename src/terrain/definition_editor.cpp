#include "terrain/definition_editor.h"

#include "controls/stepped_value.h"

#include <algorithm>

void CDefinitionEditor::bind(qxCMap* map) {
    m_pMap = map;
    if (map != nullptr) {
        m_nTextureNumber = map->getCurrentMultiTexture();
    }
}

qxCMapMultiTexture* CDefinitionEditor::current() const {
    return m_pMap != nullptr && m_pMap->getNumMultiTextures() > 0 ? m_pMap->getMultiTexture(m_nTextureNumber)
                                                                  : nullptr;
}

const qxCMapMultiTexture* CDefinitionEditor::settle() {
    if (m_pMap == nullptr) {
        return nullptr;
    }
    m_nTextureNumber = std::clamp(m_nTextureNumber, 0, std::max(m_pMap->getNumMultiTextures() - 1, 0));
    const qxCMapMultiTexture* const definition = current();
    if (definition != nullptr) {
        m_pMap->setCurrentMultiTexture(m_nTextureNumber);
    }
    return definition;
}

bool CDefinitionEditor::previous() {
    if (m_pMap == nullptr || m_nTextureNumber <= 0) {
        return false;
    }
    --m_nTextureNumber;
    return true;
}

bool CDefinitionEditor::next() {
    if (m_pMap == nullptr || m_nTextureNumber >= m_pMap->getNumMultiTextures() - 1) {
        return false;
    }
    ++m_nTextureNumber;
    return true;
}

bool CDefinitionEditor::insert() {
    if (m_pMap == nullptr) {
        return false;
    }
    m_pMap->addMultiTexture();
    showLast();
    return true;
}

bool CDefinitionEditor::remove() {
    if (m_pMap == nullptr) {
        return false;
    }
    m_pMap->removeMultiTexture(m_nTextureNumber);
    m_nTextureNumber = std::max(m_nTextureNumber - 1, 0);
    return true;
}

bool CDefinitionEditor::duplicate() {
    const qxCMapMultiTexture* const original = current();
    if (original == nullptr) {
        return false;
    }
    const qxCMapMultiTexture values = *original; // adding may move the original
    if (qxCMapMultiTexture* const copy = m_pMap->addMultiTexture()) {
        copy->tint1 = values.tint1;
        copy->tint2 = values.tint2;
        copy->blend = values.blend;
        copy->variation = values.variation;
    }
    showLast();
    return true;
}

void CDefinitionEditor::showLast() {
    m_nTextureNumber = m_pMap->getNumMultiTextures() - 1;
}

std::optional<float> CDefinitionEditor::storeShare(Share share, float value) {
    qxCMapMultiTexture* const definition = current();
    if (definition == nullptr) {
        return std::nullopt;
    }
    definition->*share = std::clamp(value, 0.0F, 1.0F);
    return definition->*share;
}

std::optional<float> CDefinitionEditor::stepShare(Share share, float value, int delta) {
    return storeShare(share, steppedShare(value, delta));
}

bool CDefinitionEditor::storeTint(Tint tint, qxCColour colour) {
    qxCMapMultiTexture* const definition = current();
    if (definition == nullptr) {
        return false;
    }
    definition->*tint = colour;
    return true;
}
