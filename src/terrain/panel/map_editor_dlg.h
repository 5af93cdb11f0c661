#pragma once

#include "terrain/panel/surface_editor_dlg.h"
#include "terrain/panel/tool_buttons.h"

/// The map editor panel: shows the model's settings in the controls of its template, runs the commands of its
/// buttons and passes the host's strokes on to the model's tools.
class CMapEditorDlg : public CSurfaceEditorDlg {
public:
    /// `fullEditing` allows the terrain tools and the panel's own "Close".
    explicit CMapEditorDlg(bool fullEditing);
    ~CMapEditorDlg() override;

    /// Edit this map, which the host owns and keeps alive until the panel is closed.
    void bind(qxCMap* map) { m_pMap = map; }
    void strokeStart(int x, int z, int edge, int corner);
    void strokeUpdate(int x, int z, int amount);
    void strokeEnd();
    void updateCursor(int x, int z, int edge, int corner);

    bool isDetailsTab() const override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void onUserCloses() override;

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

    DECLARE_MESSAGE_MAP()

private:
    void exchangeHeight(CDataExchange* pDX);
    void initCloseButton();
    void initTabs();
    void initToggles();
    void refreshToolButtons();
    void refreshStrengthAndBrushes();
    void refreshUndoIndicators();

    CTabCtrl m_tabs;
    CSliderCtrl m_strengthSlider;
    CProgressCtrl m_undoFill;
    CToolButtons m_toolButtons;

    const bool m_bFullEditing;
    CString m_strStrength;
    int m_bMapFlag = 0;
    int m_bFog = 0;
};
