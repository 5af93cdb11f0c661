#pragma once

#include "host/random_session_driver.h"

class QAbstractButton;
class QWidget;

/// The map editor as a host and its user have it: the exports, and clicks on the real panel.
class CExportsDriver : public CSessionDriver {
public:
    ~CExportsDriver() override;

    void open(CMemoryMap& map) override;
    void clickClose() override;
    void closeWindow() override;
    void destroy() override;
    void destroySettings() override;
    void start(int x, int z, int edge, int corner) override;
    void update(int x, int z, int amount) override;
    void stop() override;
    void hover(int x, int z, int edge, int corner) override;
    bool hasControls() const override { return true; }
    void clickTab() override;
    void clickTool(int tool) override;
    void clickBrush(int brush) override;
    void clickSelectAll() override;
    void clickDeselect() override;
    void clickUndo() override;
    int shownFill() const override;
    bool isOpen() const override;
    bool isEditing() const override;
    CMapEditorModel* model() const override;

private:
    void click(int controlId);

    QWidget* m_pWindow = nullptr; // the open panel's
};
