#include "host/random_session.h"

#include "terrain/edit_cursor.h"
#include "terrain/map_editor_settings.h"
#include "terrain/map_recording.h"
#include "terrain/map_selection.h"
#include "terrain/map_undo_list.h"
#include "terrain/stroke_engine.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>

namespace {

class CCorePanel : public CMapEditorModel {
public:
    bool isDetails = false;
    qxCColour tint{255, 255, 255, 255};

    bool isDetailsTab() const override { return isDetails; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return tint; }
};

class CCoreDriver : public CSessionDriver {
public:
    void open(CMemoryMap& map) override {
        if (!m_pPanel) {
            m_pPanel = std::make_unique<CCorePanel>();
            m_pPanel->m_pMap = &map;
            m_pPanel->tint = m_tint;
            restoreSettings(*m_pPanel);
        }
    }
    void closeByUser() override {
        if (m_pPanel) {
            saveSettings(*m_pPanel);
            m_pPanel.reset();
        }
    }
    void destroy() override { m_pPanel.reset(); }
    void destroySettings() override {
        g_savedSettings.valid = false;
        g_mapUndoList.clear();
    }
    void changeTab() override {
        m_pPanel->isDetails = !m_pPanel->isDetails;
        std::swap(m_pPanel->m_nTool, m_pPanel->m_nOtherTabTool);
    }
    void start(int x, int z, int edge, int corner) override {
        if (m_pPanel) {
            m_bEditing = true;
            strokeStart(*m_pPanel, x, z, edge, corner);
        }
    }
    void update(int x, int z, int amount) override {
        if (m_pPanel) {
            strokeUpdate(*m_pPanel, x, z, amount);
        }
    }
    void stop() override {
        if (m_pPanel) {
            m_bEditing = false;
            strokeEnd(*m_pPanel);
        }
    }
    void hover(int x, int z, int edge, int corner) override {
        if (m_pPanel) {
            updateCursor(*m_pPanel, x, z, edge, corner, false);
        }
    }
    void clickSelectAll() override { selectAll(*m_pPanel); }
    void clickDeselect() override { deselect(*m_pPanel); }
    void clickUndo() override { undo(*m_pPanel); }
    void setTint(const qxCColour& tint) override {
        m_tint = tint;
        m_pPanel->tint = tint;
    }
    bool isOpen() const override { return m_pPanel != nullptr; }
    bool isEditing() const override { return m_bEditing; }
    CMapEditorModel* model() override { return m_pPanel.get(); }

private:
    std::unique_ptr<CCorePanel> m_pPanel;
    qxCColour m_tint{255, 255, 255, 255};
    bool m_bEditing = false;
};

std::uint64_t setting(const char* name, std::uint64_t standard) {
    const char* const value = std::getenv(name);
    return value != nullptr ? std::strtoull(value, nullptr, 10) : standard;
}

} // namespace

TEST(RandomSession, EditorAndReferenceStayAlike) {
    const std::uint64_t seed = setting("VESK_SESSION_SEED", 1);
    const std::uint64_t operations = setting("VESK_SESSION_OPS", 60'000);
    std::cout << "random sessions: " << operations << " operations, seed " << seed << std::endl;
    CCoreDriver driver;
    CReferenceEditor reference;
    struct {
        int share;
        int closings;
    } const phases[] = {{1, 300}, {7, 2}};
    for (const auto& [share, closings] : phases) {
        CRandomSession session(driver, reference, seed, closings);
        ASSERT_TRUE(session.run(static_cast<std::int64_t>(operations) * share / 8));
        std::cout << "most records in the history: " << session.getPeakHistory() << std::endl;
        ASSERT_TRUE(session.undoAll());
    }
}
