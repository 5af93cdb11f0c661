#pragma once

class CMapEditorModel;
class qxCMap;

/// The tool settings remembered between openings of the map editor.
struct MapEditorSettings {
    bool valid = false;          ///< the other fields belong to an earlier opening
    const qxCMap* map = nullptr; ///< whose settings and history they are; compared by address only
    int tool = 0;
    int brushSize = 0;
    int strength = 0;
    int height = 0;
};

/// The one instance of the module: it outlives the panel.
extern MapEditorSettings g_savedSettings;

/// A panel opens on its map: take the remembered settings over. Those of another map, or none, are reset
/// first and the history is emptied.
void restoreSettings(CMapEditorModel& model);

/// The user closes the panel: remember its settings.
void saveSettings(const CMapEditorModel& model);
