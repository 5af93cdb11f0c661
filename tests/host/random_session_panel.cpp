#include "host/random_session.h"

#include "resources/resource_ids.h"

#include <algorithm>
#include <cstdio>

/// The last one has a name that is too long.
const std::vector<std::string> CRandomSession::FILES = {"moss.tga", "rock.v2.tga", "abcdefghijkl.tga",
                                                        "seven.leagues.long.tga", "abcdefghijklm.tga"};

namespace {

constexpr int MOST_DETAILS = 24;
constexpr int MOST_DEFINITIONS = 5;
constexpr int MOST_TEXTURES = 9;
constexpr int OK = 1;
constexpr int CANCEL = 2;

const std::vector<int> SWATCHES = {IDC_TINT_COLOUR, IDC_TINT_1, IDC_TINT_2, IDC_AMBIENT_COLOUR,
                                   IDC_DIFFUSE_COLOUR};
const std::vector<float> SHARES = {0.0F, 0.04F, 0.25F, 1.0F / 3.0F, 0.7F, 0.95F, 1.0F};
/// To be typed; a field that keeps one shows it in these words.
const std::vector<std::string> NUMBERS = {"0",   "0.25",  "0.5",   "0.333333", "1",   "7",
                                          "-3",  "-0.04", "1e+10", "0.15",     "345", "256",
                                          "257", "0.95",  "1024",  "soft",     "",    "1,5"};

std::string inWords(const std::vector<DialogStep>& steps) {
    std::string all;
    for (const DialogStep& step : steps) {
        all += text(", control", step.id, "row", step.row, '"' + step.text + '"',
                    static_cast<int>(step.leaving));
        for (const std::string& file : step.files) {
            all += ' ' + file;
        }
    }
    return all;
}

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

/// While the panel shows them, definitions and material are the panel's to change.
void CRandomSession::workOnMap() {
    const qxCColour colours[] = {anyColour(), anyColour()};
    const int kind = pick(0, m_driver.hasControls() && m_driver.isOpen() ? 1 : 6);
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
    } else if (!m_driver.hasControls()) {
        kind <= 500 ? pickColour() : click(IDC_HIDE_CURSOR);
    } else if (kind <= 450) {
        walkDefinitions();
    } else if (kind <= 560) {
        typeNumber();
    } else if (kind <= 660) {
        spin(anyOf<int>({IDC_BLEND_SPIN, IDC_VARIATION_SPIN, IDC_TILING_SPIN}));
    } else if (kind <= 700) {
        const int strength = pick(1, 10);
        both(text("slide", strength), [=](auto& editor) { editor.slide(strength); });
    } else if (kind <= 830) {
        dragColour();
    } else if (kind <= 950) {
        click(anyOf<int>({IDC_HIDE_CURSOR, IDC_MAP_FLAG, IDC_FOG, IDC_REDO, IDC_GLOBAL_SMOOTH, IDC_EXPAND}));
    } else if (kind <= 960) {
        pickColour();
    } else if (kind <= 980) {
        editTypes();
    } else {
        listTextures();
    }
}

void CRandomSession::walkDefinitions() {
    std::vector<int> commands = {IDC_PREVIOUS_TEXTURE, IDC_PREVIOUS_TEXTURE, IDC_NEXT_TEXTURE,
                                 IDC_NEXT_TEXTURE, IDC_DELETE_DEFINITION};
    if (m_reference.map->getNumMultiTextures() < MOST_DEFINITIONS) {
        commands.insert(commands.end(), {IDC_INSERT_DEFINITION, IDC_DUPLICATE_DEFINITION});
    }
    click(anyOf(commands));
}

void CRandomSession::typeNumber() {
    const int id = anyOf<int>({IDC_HEIGHT, IDC_BLEND, IDC_VARIATION, IDC_TILING});
    const bool isWhole = id == IDC_HEIGHT || id == IDC_TILING;
    const std::string number = isWhole && chance(5) ? "99999999999" : anyOf(NUMBERS);
    const Leaving leaving = chance(50) ? Leaving::ENTER : Leaving::TAB;
    both(text("type", id, number), [&](auto& editor) { return editor.type(id, number, leaving); });
    if (id != IDC_HEIGHT && chance(40)) {
        spin(id == IDC_TILING ? IDC_TILING_SPIN : id == IDC_BLEND ? IDC_BLEND_SPIN : IDC_VARIATION_SPIN);
    }
}

void CRandomSession::spin(int id) {
    const bool up = chance(60);
    both(text("spin", id, up), [=](auto& editor) { editor.spin(id, up); });
}

void CRandomSession::pickColour() {
    const int swatch = m_driver.hasControls() ? anyOf(SWATCHES) : IDC_TINT_COLOUR;
    const qxCColour colour = anyColour();
    const bool chosen = chance(70);
    both(text("pick colour", swatch, chosen, describe(colour)),
         [&](auto& editor) { return editor.pickColour(swatch, chosen ? &colour : nullptr); });
}

void CRandomSession::dragColour() {
    const int beside = IDC_STRENGTH_TEXT; // a press that starts nothing, a release that is missed
    const int from = chance(80) ? anyOf(SWATCHES) : beside;
    const int to = chance(85) ? anyOf(SWATCHES) : beside;
    const auto isInSight = [=, this](int id) {
        return id == beside || id == IDC_TINT_COLOUR || m_reference.panel.expanded;
    };
    if (isInSight(from) && isInSight(to)) {
        both(text("drag colour", from, to), [=](auto& editor) { editor.dragColour(from, to); });
    }
}

void CRandomSession::editTypes() {
    std::vector<DialogStep> steps;
    for (int count = pick(0, 6); count > 0; --count) {
        const int kind = pick(1, 100);
        DialogStep step;
        if (kind <= 15) {
            step.id = IDC_TERRAIN_TYPE;
            step.row = pick(0, 4);
        } else if (kind <= 35) {
            step.id = kind <= 25 ? IDC_PRESERVE_FLAT_AREAS : IDC_NORMALIZE;
        } else {
            step.id = kind <= 60 ? anyOf<int>({IDC_NOISE, IDC_EFFECT_ON_NEIGHBOURS, IDC_WEIGHTING})
                                 : pick(IDC_FILTER_FIRST, IDC_FILTER_LAST);
            step.text = anyOf(NUMBERS);
            const bool isNumber = !step.text.empty() && step.text != "soft" && step.text != "1,5";
            step.leaving = static_cast<Leaving>(pick(0, isNumber ? 2 : 1));
        }
        steps.push_back(step);
    }
    steps.push_back({.id = anyOf<int>({OK, CANCEL, STEP_ESCAPE})});
    both(text("edit types", inWords(steps)),
         [&](auto& editor) { return editor.runDialog(IDC_TERRAIN_TYPES, steps); });
}

void CRandomSession::listTextures() {
    const int textures = m_expectedScene.getNumTextures();
    std::vector<DialogStep> steps;
    for (int count = pick(0, 4); count > 0; --count) {
        const int id = anyOf<int>({IDC_TEXTURES, IDC_TEXTURES, IDC_TEXTURE_FORMAT, IDC_TEXTURE_SIZE});
        steps.push_back({.id = id, .row = pick(0, id == IDC_TEXTURES ? textures : 7)});
    }
    if (chance(50)) {
        std::vector<std::string> files = {FILES.back()};
        if (textures < MOST_TEXTURES) {
            files = FILES;
            std::ranges::shuffle(files, m_random);
            files.resize(static_cast<std::size_t>(pick(0, 3)));
        }
        steps.push_back({.id = IDC_IMPORT_TEXTURE, .files = files});
    }
    const int end = anyOf<int>({OK, OK, CANCEL, STEP_ESCAPE, STEP_DOUBLE_CLICK});
    steps.push_back({.id = end, .row = pick(0, textures)});
    const int picker = m_reference.panel.isDetailsTab && chance(70)
                           ? IDC_DETAIL_TEXTURE
                           : pick(IDC_SMOOTH_TEXTURE, IDC_DETAIL_TEXTURE);
    both(text("list textures", picker, inWords(steps)),
         [&](auto& editor) { return editor.runDialog(picker, steps); });
}
