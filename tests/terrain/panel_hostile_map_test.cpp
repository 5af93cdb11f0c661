// Maps that call the exports back, throw, and answer with nothing: the host's bugs are not the panel's end.
#include "host/forwarding_map.h"
#include "host/veskutil.h"
#include "support/modal_steps.h"
#include "terrain/panel_fixture.h"

#include <QApplication>

#include <limits>
#include <stdexcept>

namespace {

constexpr float NO_NUMBER = std::numeric_limits<float>::quiet_NaN();

class HostileMap : public PanelTest {
protected:
    ~HostileMap() override { vuDestroyEditor(); }

    CForwardingMap m_hostile;
};

TEST_F(HostileMap, MayCloseTheEditorInsideAStroke) {
    open(m_hostile);
    click(IDC_TOOL_RAISE);
    click(IDC_BRUSH_DISC);
    bool closed = false;
    m_hostile.onSetHeight = [&] {
        vuDestroyEditor();
        EXPECT_FALSE(vuIsEditorActive()) << "at once";
        closed = true;
    };
    vuStartEditing(5, 5, 0, 0);
    vuUpdateEditing(5, 5, 0, 0, 0, -9);
    EXPECT_TRUE(closed);
    EXPECT_EQ(panel(), nullptr);
    vuStopEditing();
    m_hostile.onSetHeight = [] {};
    open(m_hostile);
    vuStartEditing(5, 5, 0, 0);
    vuStopEditing();
    EXPECT_FALSE(vuIsEditingInProgress());
}

// Every call that a click makes is one inside of which the host may lose its patience.
TEST_F(HostileMap, MayCloseTheEditorInsideAnyCallOfAnyClick) {
    std::vector<std::function<void()>> acts = {
        [] {
            CModalSteps person({[](QWidget* dialog) { dialog->close(); }});
            click(IDC_TERRAIN_TYPES);
        },
        [] {
            type(IDC_TILING, "7");
            press(IDC_TILING, Qt::Key_Tab);
        },
        [] { selectTab(1); },
    };
    for (const int id : {IDC_INSERT_DEFINITION, IDC_DUPLICATE_DEFINITION, IDC_DELETE_DEFINITION,
                         IDC_NEXT_TEXTURE, IDC_SELECT_ALL, IDC_UNDO, IDC_MAP_FLAG, IDC_FOG}) {
        acts.emplace_back([id] { click(id); });
    }
    m_hostile.addMultiTexture();
    m_hostile.addMultiTexture();
    for (std::size_t act = 0; act < acts.size(); ++act) {
        SCOPED_TRACE(act);
        int calls = 0;
        int closedAt = 1;
        do {
            open(m_hostile);
            expand();
            click(IDC_TOOL_RAISE);
            stroke(5, 5, -9);
            calls = 0;
            m_hostile.onCall = [&] {
                if (++calls == closedAt) {
                    vuDestroyEditor();
                }
            };
            acts[act]();
            m_hostile.onCall = [] {};
            EXPECT_EQ(vuIsEditorActive(), calls < closedAt);
            EXPECT_EQ(panel() == nullptr, calls >= closedAt);
            vuDestroyEditor();
            closedAt += closedAt < 20 ? 1 : calls / 5 + 1;
        } while (calls >= closedAt);
    }
}

TEST_F(HostileMap, MayThrowInsideAClick) {
    open(m_hostile);
    expand();
    m_hostile.onReadDim = [] { throw std::runtime_error("out of its depth"); };
    click(IDC_SELECT_ALL);
    m_hostile.onReadDim = [] {};
    ASSERT_TRUE(vuIsEditorActive());
    click(IDC_TOOL_RAISE);
    EXPECT_TRUE(isChecked(IDC_TOOL_RAISE)) << "the panel works on";
    click(IDC_CLOSE);
    EXPECT_EQ(panel(), nullptr);
}

/// Counts what it does not have, and what it has is no number.
class CEmptyHandedMap : public CForwardingMap {
public:
    qxCTexture* getTexture(qxMapLayerType /*layer*/) const override { return nullptr; }
    int getNumTerrainDefs() const override { return 3; }
    _qxMapTerrainDef* getTerrainDef(int index) override {
        EXPECT_TRUE(index >= 0 && index < 3) << index;
        return index == 1 ? &m_type : nullptr;
    }
    int getNumMultiTextures() const override { return 2; }
    qxCMapMultiTexture* getMultiTexture(int index) override { return index == 0 ? &m_definition : nullptr; }
    qxCMapMultiTexture* addMultiTexture() override { return nullptr; }
    float getGradient(int /*x*/, int /*z*/) const override { return NO_NUMBER; }

private:
    _qxMapTerrainDef m_type{.noise = NO_NUMBER, .weighting = NO_NUMBER};
    qxCMapMultiTexture m_definition{{}, {}, NO_NUMBER, NO_NUMBER};
};

TEST_F(HostileMap, WhatItDoesNotHaveIsShownAsNothing) {
    CEmptyHandedMap empty;
    open(empty);
    expand();
    EXPECT_EQ(text(IDC_BLEND), "0");
    EXPECT_EQ(text(IDC_VARIATION), "0");
    click(IDC_TOOL_GET_GRADIENT);
    stroke(3, 3);
    EXPECT_EQ(text(IDC_GRADIENT), "0");
    for (const int button : {IDC_DUPLICATE_DEFINITION, IDC_INSERT_DEFINITION, IDC_NEXT_TEXTURE,
                             IDC_DELETE_DEFINITION, IDC_TOOL_RAISE, IDC_TOOL_PAINT, IDC_HIDE_CURSOR}) {
        click(button); // a message box would hold the test up
    }
    stroke(4, 4, -5);
    CModalSteps person({[](QWidget* dialog) {
        EXPECT_EQ(ui::control(*dialog, IDC_NOISE).property("text").toString(), "0");
        dialog->close();
    }});
    click(IDC_PREVIOUS_TEXTURE);
    click(IDC_TERRAIN_TYPES);
    EXPECT_TRUE(person.areDone());
    vuDestroyEditor();
}

TEST_F(HostileMap, TabShowsWhereItIsAndPassesOverWhatAFoldedPanelHides) {
    m_map.addMultiTexture(); // what enables the fields of the hidden half
    open();
    click(IDC_TOOL_RAISE);
    ui::click(*control(IDC_HEIGHT));
    for (int i = 0; i < 40; ++i) {
        ui::press(Qt::Key_Tab);
        const QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        ASSERT_TRUE(panel()->rect().contains(focused->mapTo(panel(), focused->rect().center())))
            << focused->objectName().toStdString();
        const QPoint beside = focused->mapTo(panel(), QPoint(-1, focused->height() / 2));
        ASSERT_EQ(panel()->grab().toImage().pixelColor(beside), panel()->palette().color(QPalette::Highlight))
            << focused->objectName().toStdString() << " does not show that it has the keyboard";
    }
    expand();
    EXPECT_TRUE(isShown(IDC_BLEND));
}

} // namespace
