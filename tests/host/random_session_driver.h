#pragma once

#include "engine/memory/memory_map.h"
#include "terrain/model/map_editor_model.h"

#include <memory>
#include <string>
#include <vector>

/// What a person gets to read while doing something: texts of messages, what a dialog shows after each step.
using Seen = std::vector<std::string>;

/// How an edit field is left after typing.
enum class Leaving { ENTER, TAB, NOT_YET };

/// One thing that a person does in a dialog to the control `id`.
struct DialogStep {
    int id = 0;
    int row = -1;                        ///< of a list: the entry to choose
    std::string text = {};               ///< of an edit: what to type
    Leaving leaving = Leaving::TAB;      ///< of an edit
    std::vector<std::string> files = {}; ///< of "Import...": what to choose, none for "Cancel"
};
/// As ids of a last step: the Escape key, and a double-click on `row` of the list of textures.
inline constexpr int STEP_ESCAPE = -1;
inline constexpr int STEP_DOUBLE_CLICK = -2;

/// The editor under test, as a session drives it: by the calls of the host and by what a person does. What
/// is done to a control that is disabled or out of sight does nothing.
class CSessionDriver {
public:
    virtual ~CSessionDriver() = default;

    /// True when the panel has controls: then its buttons may be disabled, and a read of them changes what
    /// they cannot show. Without them the functions that come last here do nothing.
    virtual bool hasControls() const = 0;

    virtual void open(CMemoryMap& map, bool fullEditing) = 0;
    virtual void destroy() = 0;
    virtual void destroySettings() = 0;
    virtual void start(int x, int z, int edge, int corner) = 0;
    /// `ignored` goes in for the three arguments that are to change nothing.
    virtual void update(int x, int z, int ignored, int amount) = 0;
    virtual void stop() = 0;
    virtual void hover(int x, int z, int edge, int corner) = 0;
    virtual bool isOpen() const = 0;
    virtual bool isEditing() const = 0;
    /// Null while the editor is closed.
    virtual CMapEditorModel* model() const = 0;

    /// A close request to the window, as from its frame.
    virtual void closeWindow() = 0;
    virtual void click(int id) = 0;
    virtual void clickTab() = 0;
    /// Choose a colour for a swatch, or cancel with null; the colour that was offered.
    virtual Seen pickColour(int swatch, const qxCColour* colour) = 0;

    /// Press on one swatch and let go over another control.
    virtual void dragColour(int /*from*/, int /*to*/) {}
    virtual Seen type(int /*edit*/, const std::string& /*text*/, Leaving /*leaving*/) { return {}; }
    virtual void spin(int /*id*/, bool /*up*/) {}
    /// Bring the strength slider to 1..10.
    virtual void slide(int /*strength*/) {}
    /// Open a dialog with the panel's button `opener` and take these steps, of which the last one ends it.
    virtual Seen runDialog(int /*opener*/, const std::vector<DialogStep>& /*steps*/) { return {}; }
    /// The ids of all controls of the open panel, and what they show.
    virtual const std::vector<int>& controls() const = 0;
    virtual Seen shown() const { return {}; }
};

/// One control as it is seen, and a colour, in words.
inline std::string describe(const std::string& text, bool enabled) {
    return enabled ? text : text + " off";
}
inline std::string describe(const qxCColour& colour) {
    return std::to_string(colour.r) + ' ' + std::to_string(colour.g) + ' ' + std::to_string(colour.b);
}

/// The map editor without its panel.
std::unique_ptr<CSessionDriver> makeCoreDriver();
/// The map editor as a host and its user have it: the exports, and mouse and keys on the real panel.
/// `textureDir` is where the files to import are.
std::unique_ptr<CSessionDriver> makeExportsDriver(const std::string& textureDir);
