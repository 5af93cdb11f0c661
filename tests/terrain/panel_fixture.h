#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "platform/cstring.h"

#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

class CMapEditorDlg;

/// A map editor opened through the exports on a map of 64 cells, driven by mouse and keys like a person's.
class PanelTest : public testing::Test {
protected:
    PanelTest();
    ~PanelTest() override;

    void open(bool fullEditing = true);
    void open(qxCMap& other, bool fullEditing = true);
    void reopen();

    /// The panel's window, null when it is closed.
    static QWidget* panel();
    static CMapEditorDlg& model();

    /// A control by its id; the test ends when the panel has none.
    static QWidget* control(int id);
    static bool isEnabled(int id);
    static bool isShown(int id);
    static bool isChecked(int id);
    /// Text of an edit, a label or a button.
    static QString text(int id);
    /// Position of a slider, or how far a bar is filled.
    static int value(int id);

    static void click(int id);
    static void press(int id, Qt::Key key);
    /// Click into an edit and replace its text, without leaving it.
    static void type(int id, const QString& newText);
    static void selectTab(int index);
    static void expand();

    /// One stroke of a single update.
    static void stroke(int x, int z, int amount = 0, int corner = 0);

    /// Run `action`, during which a message box comes up: its text. `whileOpen` runs before it is answered.
    static QString messageDuring(
        const std::function<void()>& action, const std::function<void()>& whileOpen = [] {});

    CMemoryScene m_scene;
    CMemoryMap m_map{64, &m_scene};
};
