#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "support/modal_steps.h"
#include "terrain/model/map_undo_list.h"

#include <QTest>

#include <functional>
#include <memory>

TEST_F(PanelTest, CloseRemembersTheSettingsForTheSameMap) {
    open();
    click(IDC_TOOL_SET_HEIGHT);
    click(IDC_BRUSH_2X2);
    press(IDC_STRENGTH, Qt::Key_Right);
    type(IDC_HEIGHT, "512");
    click(IDC_TOOL_SET_HEIGHT);
    stroke(3, 3);
    const int records = g_mapUndoList.getCount();
    EXPECT_GT(records, 0);
    click(IDC_CLOSE);
    EXPECT_FALSE(vuIsEditorActive());
    EXPECT_EQ(panel(), nullptr);

    open();
    EXPECT_TRUE(isChecked(IDC_TOOL_SET_HEIGHT));
    EXPECT_TRUE(isChecked(IDC_BRUSH_2X2));
    EXPECT_TRUE(isEnabled(IDC_BRUSH_2X2));
    EXPECT_EQ(value(IDC_STRENGTH), 2);
    EXPECT_EQ(text(IDC_STRENGTH_TEXT), "2");
    EXPECT_EQ(text(IDC_HEIGHT), "512");
    EXPECT_EQ(g_mapUndoList.getCount(), records);

    // The host's way to close keeps the history, and the settings of the last "Close".
    click(IDC_TOOL_TINT);
    vuDestroyEditor();
    open();
    EXPECT_TRUE(isChecked(IDC_TOOL_SET_HEIGHT));
    EXPECT_EQ(g_mapUndoList.getCount(), records);
    vuDestroyEditor();

    CMemoryMap other(16, &m_scene);
    open(other);
    EXPECT_TRUE(isChecked(IDC_TOOL_SELECT));
    EXPECT_TRUE(isChecked(IDC_BRUSH_CELL));
    EXPECT_EQ(text(IDC_HEIGHT), "0");
    EXPECT_EQ(text(IDC_STRENGTH_TEXT), "2") << "strength is not tied to a map";
    EXPECT_TRUE(g_mapUndoList.isEmpty());
    vuDestroyEditor();
}

TEST_F(PanelTest, StaysOpenUnderEscapeAndEnter) {
    open();
    for (const int id : {IDC_HEIGHT, IDC_STRENGTH, IDC_TOOL_TABS, IDC_HIDE_CURSOR}) {
        SCOPED_TRACE(id);
        press(id, Qt::Key_Escape);
        press(id, Qt::Key_Return);
        ASSERT_TRUE(vuIsEditorActive());
        ASSERT_NE(panel(), nullptr);
        ASSERT_TRUE(panel()->isVisible());
    }
    press(IDC_CLOSE, Qt::Key_Space);
    EXPECT_FALSE(vuIsEditorActive());
    EXPECT_EQ(panel(), nullptr);
}

// A host's timer may close the editor, and free the map, while a dialog of the panel's stands open.
TEST_F(PanelTest, TakesTheDialogsOverItDown) {
    const std::function<void()> openers[] = {[] { click(IDC_TERRAIN_TYPES); },
                                             [] { click(IDC_SMOOTH_TEXTURE); },
                                             [] { ui::doubleClick(*control(IDC_TINT_COLOUR)); },
                                             [] {
                                                 type(IDC_HEIGHT, "9999");
                                                 ui::press(Qt::Key_Tab); // a message box
                                             }};
    for (const auto& openDialog : openers) {
        auto doomed = std::make_unique<CMemoryMap>(16, &m_scene);
        open(*doomed);
        expand();
        const CModalSteps host({[&](const QWidget* dialog) {
            vuDestroyEditor();
            vuDestroySettings();
            doomed.reset();
            EXPECT_FALSE(dialog->isVisible()) << "it would go on blocking the host";
        }});
        openDialog();
        EXPECT_TRUE(host.areDone());
        EXPECT_FALSE(vuIsEditorActive());
        EXPECT_EQ(panel(), nullptr);
    }
}
