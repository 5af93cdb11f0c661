#pragma once

#include "host/random_session_driver.h"

#include <memory>
#include <random>

/// The map editor without its panel.
class CCoreDriver : public CSessionDriver {
public:
    CCoreDriver();
    ~CCoreDriver() override;

    void open(CMemoryMap& map) override;
    void clickClose() override;
    void closeWindow() override;
    void destroy() override;
    void destroySettings() override;
    void start(int x, int z, int edge, int corner) override;
    void update(int x, int z, int amount) override;
    void stop() override;
    void hover(int x, int z, int edge, int corner) override;
    bool hasControls() const override { return false; }
    void clickTab() override;
    void clickTool(int tool) override;
    void clickBrush(int brush) override;
    void clickSelectAll() override;
    void clickDeselect() override;
    void clickUndo() override;
    int shownFill() const override { return 0; }
    bool isOpen() const override { return m_pPanel != nullptr; }
    bool isEditing() const override { return m_bEditing; }
    CMapEditorModel* model() const override;

private:
    class CPanel;

    std::unique_ptr<CPanel> m_pPanel;
    std::mt19937 m_tints;
    bool m_bEditing = false;
};
