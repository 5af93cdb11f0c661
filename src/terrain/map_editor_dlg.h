#pragma once

#include "controls/editor_dialog.h"
#include "terrain/map_editor_buttons.h"
#include "terrain/map_editor_model.h"

#include <array>

/// The map editor panel: shows the model's settings in the controls of its template, runs the commands of its
/// buttons and passes the host's strokes on to the model's tools. Lives on the heap; once its window is open
/// it owns itself: it is freed when the user closes the window or when the host calls destroy().
class CMapEditorDlg : public CEditorDialog, public CMapEditorModel {
public:
    /// `fullEditing` allows the terrain tools and the panel's own "Close".
    explicit CMapEditorDlg(bool fullEditing);
    ~CMapEditorDlg() override;

    /// Edit this map, which the host owns and keeps alive until the panel is closed.
    void bind(qxCMap* map) { m_pMap = map; }
    /// Open the modeless window as a child of `host`, which may be null. False, and the object still the
    /// caller's, when there is no window.
    bool createWindow(CWnd* host);
    /// Close the window and free the object, without remembering its settings. From inside one of the panel's
    /// own commands (a host's timer may call while a message box is open) the object lives on, hidden and
    /// without its map, until that command returns.
    void destroy();

    void strokeStart(int x, int z, int edge, int corner);
    void strokeUpdate(int x, int z, int amount);
    void strokeEnd();
    void updateCursor(int x, int z, int edge, int corner);

    bool isDetailsTab() const override;
    void showMembers() override;
    qxCColour getToolTint() const override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void PostNcDestroy() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    afx_msg void onToolClicked();
    afx_msg void onBrushClicked();
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void onHeightKillFocus();
    afx_msg void onTabChanged(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void onHideCursor();
    afx_msg void onMapFlag();
    afx_msg void onFog();
    afx_msg void onSelectAll();
    afx_msg void onDeselect();
    afx_msg void onUndo();
    afx_msg void onCloseButton();
    afx_msg void OnClose();

    DECLARE_MESSAGE_MAP()

private:
    /// Copy the controls into the members; after a refused value the controls show the members again. False
    /// when the editor was closed, which may happen under the message box of a refusal.
    bool readControls();
    void exchangeHeight(CDataExchange* pDX);
    void initCloseButton();
    void initIcons();
    void initTabs();
    void initToggles();
    void readTerrainCaptions();
    void refreshToolButtons();
    void refreshStrengthAndBrushes();
    void refreshUndoIndicators();
    void setButtonIcon(int controlId, int iconId);
    void closeByUser();

    CTabCtrl m_tabs;
    CSliderCtrl m_strengthSlider;
    CSpinButtonCtrl m_tilingSpin;
    CProgressCtrl m_undoFill;

    const bool m_bFullEditing;
    std::array<CString, TOOL_BUTTONS.size()>
        m_terrainCaptions; ///< of the tool buttons, as the template has them
    CString m_strStrength;
    int m_nTextureNumber = 0; ///< index of the texture definition shown
    float m_fBlend = 0.0F;
    float m_fVariation = 0.0F;
    int m_nTiling = 0;
    int m_bMapFlag = 0;
    int m_bFog = 0;

    bool m_bOwnsItself = false;   ///< the end of the window is the end of the object
    bool m_bFreeWhenIdle = false; ///< to be freed when the outermost message has been handled
    int m_nDispatchDepth = 0;     ///< messages being handled, one inside the other
};
