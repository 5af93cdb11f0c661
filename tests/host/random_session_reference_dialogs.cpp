#include "host/random_session_reference.h"

#include "engine/qx_scene.h"
#include "engine/qx_texture.h"
#include "resources/resource_ids.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <map>

namespace {

const std::vector<std::pair<std::string, int>> FORMATS = {
    {"Auto", 1},       {"Pal", 2},     {"Pal+Alpha", 3}, {"Grey", 4},
    {"Grey+Alpha", 5}, {"RGB 565", 6}, {"RGBA 1555", 7}, {"RGBA 4444", 9}};
const std::vector<std::pair<std::string, int>> SIZES = {
    {"Empty", 0},  {"1x1", 1},    {"2x2", 2},    {"4x4", 4},       {"8x8", 8},
    {"16x16", 16}, {"32x32", 32}, {"64x64", 64}, {"128x128", 128}, {"256x256", 256}};
constexpr std::size_t LONGEST_NAME = 12;
constexpr int OK = 1;
constexpr int CANCEL = 2;

std::string lower(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

template <typename List, typename Entry> std::string listed(const List& list, int chosen, Entry entry) {
    std::string all;
    for (const auto& item : list) {
        all += (chosen-- == 0 ? "*" : "") + std::string(entry(item)) + '|';
    }
    return all;
}

std::string line(int id, const std::string& text, bool enabled = true) {
    return std::to_string(id) + ": " + describe(text, enabled);
}

/// The Terrain Type Editor.
class CTypeEditor {
public:
    explicit CTypeEditor(CMemoryMap& map) {
        for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
            m_types.push_back(map.getTerrainDef(i));
        }
        std::stable_sort(m_types.begin(), m_types.end(),
                         [](const auto* a, const auto* b) { return lower(a->name) < lower(b->name); });
    }

    void take(const DialogStep& step, Seen& seen) {
        if (m_nTyping != 0 && step.id != STEP_ESCAPE && step.id != m_nTyping) {
            store(m_nTyping, m_strTyped);
        }
        m_nTyping = 0;
        if (step.id == IDC_TERRAIN_TYPE) {
            m_nChosen = step.row;
        } else if (step.id == IDC_PRESERVE_FLAT_AREAS) {
            type().preserveFlatAreas = !type().preserveFlatAreas;
        } else if (step.id == IDC_NORMALIZE) {
            type().weighting = 0.0F;
            for (const float cell : type().filter) {
                type().weighting += cell;
            }
        } else if (step.leaving == Leaving::NOT_YET) {
            m_nTyping = step.id;
            m_strTyped = step.text;
        } else if (step.id > CANCEL && !store(step.id, step.text)) {
            seen.push_back("Enter a number.");
        }
    }

    void look(Seen& seen) const {
        std::map<int, std::string> texts = {{OK, ""}, {CANCEL, ""}, {IDC_NORMALIZE, ""}};
        texts[IDC_TERRAIN_TYPE] = listed(m_types, m_nChosen, [](const auto* t) { return t->name; });
        texts[IDC_PRESERVE_FLAT_AREAS] = type().preserveFlatAreas ? "1" : "0";
        std::vector<int> fields = {IDC_NOISE, IDC_EFFECT_ON_NEIGHBOURS, IDC_WEIGHTING};
        for (int id = IDC_FILTER_FIRST; id <= IDC_FILTER_LAST; ++id) {
            fields.push_back(id);
        }
        for (const int id : fields) {
            texts[id] = id == m_nTyping ? m_strTyped : digits(value(id));
        }
        for (const auto& [id, text] : texts) {
            seen.push_back(line(id, text));
        }
    }

private:
    _qxMapTerrainDef& type() const { return *m_types[static_cast<std::size_t>(m_nChosen)]; }

    float& value(int id) const {
        const int row = (id - IDC_FILTER_FIRST) / 5;
        const int column = (id - IDC_FILTER_FIRST) % 5;
        return id == IDC_NOISE                  ? type().noise
               : id == IDC_EFFECT_ON_NEIGHBOURS ? type().effectOnNeighbours
               : id == IDC_WEIGHTING            ? type().weighting
                                                : type().filter[5 * column + row];
    }

    /// False for what is no number. What is shown already changes nothing.
    bool store(int id, const std::string& text) {
        char* end = nullptr;
        const float number = std::strtof(text.c_str(), &end);
        if (text.empty() || *end != '\0') {
            return false;
        }
        if (digits(number) != digits(value(id))) {
            value(id) = number;
        }
        return true;
    }

    std::vector<_qxMapTerrainDef*> m_types;
    int m_nChosen = 0;
    int m_nTyping = 0; // the field that was typed in and not left
    std::string m_strTyped;
};

/// The Texture List.
class CTextureList {
public:
    CTextureList(qxCScene& scene, qxCTexture* chosen) : m_scene(scene), m_pChosen(chosen) { showChosen(); }

    qxCTexture* chosen() const { return m_pChosen; }

    void take(const DialogStep& step, Seen& seen) {
        if (step.id == IDC_TEXTURES || step.id == STEP_DOUBLE_CLICK) {
            m_pChosen = step.row > 0 ? m_scene.getTexture(step.row - 1) : nullptr;
            showChosen();
        } else if (step.id == IDC_TEXTURE_FORMAT && m_pChosen != nullptr) {
            m_nFormat = step.row;
            m_pChosen->setPixelFormat(
                static_cast<qxImagePixelFormat>(FORMATS[static_cast<std::size_t>(step.row)].second));
        } else if (step.id == IDC_TEXTURE_SIZE && m_pChosen != nullptr) {
            m_nSize = step.row;
            m_pChosen->setSize(static_cast<qxTextureSize>(SIZES[static_cast<std::size_t>(step.row)].second));
        } else if (step.id == IDC_IMPORT_TEXTURE) {
            for (const std::string& file : step.files) {
                import(file, seen);
            }
        }
    }

    void look(Seen& seen) const {
        const auto caption = [](const auto& entry) { return entry.first; };
        std::vector<std::string> names = {"-NONE-"};
        int row = 0;
        for (int i = 0; i < m_scene.getNumTextures(); ++i) {
            names.emplace_back(m_scene.getTexture(i)->name.getString());
            row = m_scene.getTexture(i) == m_pChosen ? i + 1 : row;
        }
        const bool isTexture = m_pChosen != nullptr;
        seen.push_back(line(OK, ""));
        seen.push_back(line(CANCEL, ""));
        seen.push_back(line(IDC_DELETE_TEXTURE, "", false));
        seen.push_back(line(IDC_TEXTURES, listed(names, row, [](const auto& name) { return name; })));
        seen.push_back(line(IDC_IMPORT_TEXTURE, ""));
        seen.push_back(line(IDC_TEXTURE_FORMAT, listed(FORMATS, m_nFormat, caption), isTexture));
        seen.push_back(line(IDC_TEXTURE_SIZE, listed(SIZES, m_nSize, caption), isTexture));
        seen.push_back(line(IDC_TEXTURE_IMAGE, ""));
    }

private:
    static int rowOf(const std::vector<std::pair<std::string, int>>& entries, int value) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].second == value) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }

    void showChosen() {
        if (m_pChosen != nullptr) {
            m_nFormat = rowOf(FORMATS, m_pChosen->getPixelFormat());
            m_nSize = rowOf(SIZES, m_pChosen->getSize());
        }
    }

    void import(const std::string& file, Seen& seen) {
        const std::string name = file.substr(0, file.find('.'));
        if (name.size() > LONGEST_NAME) {
            seen.push_back("Name greater than 12 characters (f***ing artists!) ");
            return;
        }
        m_pChosen = m_scene.createTexture();
        m_pChosen->setFilename(file.c_str());
        m_pChosen->name.setString(name.c_str());
        m_scene.addTexture(m_pChosen);
        showChosen();
    }

    qxCScene& m_scene;
    qxCTexture* m_pChosen;
    int m_nFormat = -1;
    int m_nSize = -1;
};

template <typename Dialog> Seen play(Dialog& dialog, const std::vector<DialogStep>& steps) {
    Seen seen;
    for (const DialogStep& step : steps) {
        dialog.look(seen);
        dialog.take(step, seen);
    }
    return seen;
}

} // namespace

Seen CReferenceEditor::runDialog(int opener, const std::vector<DialogStep>& steps) {
    if (!isInReach(opener)) {
        return {};
    }
    if (opener == IDC_TERRAIN_TYPES) {
        CTypeEditor editor(*map);
        return play(editor, steps);
    }
    return map->getScene() != nullptr ? listTextures(opener, steps) : Seen();
}

Seen CReferenceEditor::listTextures(int picker, const std::vector<DialogStep>& steps) {
    CTextureList list(*map->getScene(), panel.pickers[picker]);
    const Seen seen = play(list, steps);
    if (!isAnyOf(steps.back().id, {OK, STEP_DOUBLE_CLICK})) {
        return seen;
    }
    panel.pickers[picker] = list.chosen();
    if (picker == IDC_DETAIL_TEXTURE) {
        panel.detailTexture = list.chosen();
        showPreview();
    } else {
        map->setTexture(static_cast<qxMapLayerType>(picker - IDC_SMOOTH_TEXTURE), list.chosen());
        refreshDefinition();
    }
    return seen;
}

Seen CReferenceEditor::pickColour(int swatch, const qxCColour* colour) {
    if (hasControls && !isInReach(swatch)) {
        return {};
    }
    m_nSwatchPressed = 0;
    const Seen offered = {describe(panel.swatches[swatch])};
    if (colour != nullptr) {
        panel.swatches[swatch] = *colour;
        colourChanged(swatch);
    }
    return offered;
}

void CReferenceEditor::dragColour(int from, int to) {
    if (panel.swatches.contains(from) && isInReach(from)) {
        m_nSwatchPressed = from;
        m_swatchColour = panel.swatches[from];
    }
    if (!panel.swatches.contains(to) || !isInReach(to)) {
        return;
    }
    if (m_nSwatchPressed != 0 && m_nSwatchPressed != to) {
        panel.swatches[to] = m_swatchColour;
        colourChanged(to);
    }
    m_nSwatchPressed = 0;
}

void CReferenceEditor::colourChanged(int swatch) {
    const qxCColour colour = panel.swatches[swatch];
    if (swatch == IDC_AMBIENT_COLOUR) {
        map->setAmbient(colour);
    } else if (swatch == IDC_DIFFUSE_COLOUR) {
        map->setDiffuse(colour);
    } else if (swatch != IDC_TINT_COLOUR && definition() != nullptr) {
        (swatch == IDC_TINT_1 ? definition()->tint1 : definition()->tint2) = colour;
    }
    if (hasControls) {
        showPreview();
    }
}
