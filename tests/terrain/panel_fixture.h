#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"
#include "terrain/panel/map_editor_dlg.h"

#include <gtest/gtest.h>

#include <functional>

/// A map editor opened through the exports on a map of 64 cells, driven by mouse and keys like a person's.
class PanelTest : public testing::Test {
protected:
    PanelTest();
    ~PanelTest() override;

    void open(bool fullEditing = true) { open(m_map, fullEditing); }
    void open(qxCMap& other, bool fullEditing = true);

    /// The panel's window, null when it is closed.
    static QWidget* panel() { return ui::dialog(IDD_MAP_EDITOR); }
    static CMapEditorDlg& model() { return *g_pMapEditorDlg; }

    /// A control by its id; the test ends when the panel has none.
    static QWidget* control(int id) { return &ui::control(*panel(), id); }
    static bool isEnabled(int id) { return control(id)->isEnabled(); }
    static bool isShown(int id) { return control(id)->isVisible(); }
    static bool isChecked(int id) { return control(id)->property("checked").toBool(); }
    /// Text of an edit, a label or a button.
    static QString text(int id) { return control(id)->property("text").toString(); }
    /// Position of a slider, or how far a bar is filled.
    static int value(int id) { return control(id)->property("value").toInt(); }

    static void click(int id) { ui::click(*control(id)); }
    static void press(int id, Qt::Key key) {
        control(id)->setFocus();
        ui::press(key);
    }
    /// Click into an edit and replace its text, without leaving it.
    static void type(int id, const QString& newText) { ui::type(*control(id), newText); }
    static void selectTab(int index);
    static void expand() { click(IDC_EXPAND); }

    /// One stroke of a single update.
    static void stroke(int x, int z, int amount = 0, int corner = 0);

    /// Run `action`, during which a message box comes up: its text. `whileOpen` runs before it is answered.
    static QString messageDuring(
        const std::function<void()>& action, const std::function<void()>& whileOpen = [] {});

    CMemoryScene m_scene;
    CMemoryMap m_map{64, &m_scene};
};
