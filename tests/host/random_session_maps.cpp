#include "host/random_session.h"

#include "resources/resource_ids.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int MOST_DETAILS = 24;
constexpr int MOST_DEFINITIONS = 5;

const std::vector<float> SHARES = {0.0F, 0.04F, 0.25F, 1.0F / 3.0F, 0.7F, 0.95F, 1.0F};

} // namespace

qxCColour CRandomSession::anyColour() {
    return {pick(0, 255), pick(0, 255), pick(0, 255), 255};
}

template <class Work> void CRandomSession::onBothMaps(Work work) {
    work(m_actualMaps[m_nMap], m_actualScene);
    work(m_expectedMaps[m_nMap], m_expectedScene);
}

void CRandomSession::makeMaps() {
    for (CMemoryScene* scene : {&m_actualScene, &m_expectedScene}) {
        for (const char* const name : {"grass", "rock", "Sea"}) {
            qxCTexture* const texture = scene->createTexture();
            texture->name.setString(name);
            texture->setFilename(name); // without an image: the preview has tests of its own
            texture->setPixelFormat(qxPixelFormat8);
            scene->addTexture(texture);
        }
    }
    for (const std::size_t number : {1U, 0U}) {
        m_nMap = number;
        onBothMaps([](CMemoryMap& map, CMemoryScene& scene) {
            *map.addMultiTexture() = {{90, 80, 70, 255}, {200, 190, 20, 255}, 0.7F, 0.5F};
            map.setTexture(qxMapLayerRough, scene.getTexture(1));
            map.heightScale = 0.5F;
            map.waterLevel = 30.25F;
            const char* const names[] = {"Rock", "Grass", "sand", "Snow", "Tundra"};
            for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
                _qxMapTerrainDef& type = *map.getTerrainDef(i);
                std::snprintf(type.name, sizeof type.name, "%s", names[i]);
            }
        });
    }
}

void CRandomSession::workOnMap() {
    const qxCColour colours[] = {anyColour(), anyColour()};
    const int kind = pick(0, 6);
    const float shares[] = {anyOf(SHARES), anyOf(SHARES)};
    const int number = pick(0, MOST_DEFINITIONS - 1);
    note(text("work on map", kind, number));
    onBothMaps([&](CMemoryMap& map, CMemoryScene& scene) {
        if (kind == 0) {
            map.waterLevel = shares[0] * 60.0F;
        } else if (kind == 1) {
            map.getTerrainDef(number)->filter[number] = shares[0];
        } else if (kind == 2 && map.getNumMultiTextures() < MOST_DEFINITIONS) {
            *map.addMultiTexture() = {colours[0], colours[1], shares[0], shares[1]};
        } else if (kind == 3) {
            map.removeMultiTexture(number);
        } else if (kind == 4) {
            map.setCurrentMultiTexture(number);
            map.setTextureTiling(number * 40);
        } else if (kind == 5) {
            map.setAmbient(colours[0]);
            map.setDiffuse(colours[1]);
        } else if (kind == 6) {
            map.setTexture(static_cast<qxMapLayerType>(number % 3),
                           number < 3 ? scene.getTexture(number) : nullptr);
        }
    });
}

void CRandomSession::setDetailTexture() {
    // A map full of details would only make the session slow.
    const bool some = m_reference.map->getDetails().size() < MOST_DETAILS && chance(70);
    const int index = pick(0, 2);
    m_driver.model()->m_pDetailTexture = some ? m_actualScene.getTexture(index) : nullptr;
    m_reference.panel.detailTexture = some ? m_expectedScene.getTexture(index) : nullptr;
    note(text("set detail texture", some ? index : -1));
}

void CRandomSession::usePanel() {
    const int kind = pick(1, 1000);
    if (kind <= 100) {
        workOnMap();
    } else if (kind <= 500) {
        pickColour();
    } else {
        click(IDC_HIDE_CURSOR);
    }
}

void CRandomSession::pickColour() {
    const qxCColour colour = anyColour();
    both(text("pick colour", colour.r, colour.g, colour.b),
         [&](auto& editor) { editor.setToolTint(colour); });
}
