#pragma once

#include "controls/colour_button.h"
#include "controls/hosted_editor_dlg.h"
#include "controls/image_preview.h"
#include "controls/texture_picker_button.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/panel/map_editor_buttons.h"
#include "terrain/texture_preview.h"

#include <array>
#include <initializer_list>

class CTerrainTypeDlg;
class qxCMapMultiTexture;

/// The map editor panel: shows the model's settings in the controls of its template, runs the commands of its
/// buttons and passes the host's strokes on to the model's tools.
class CMapEditorDlg : public CHostedEditorDlg, public CMapEditorModel {
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
    void showMembers() override;
    qxCColour getToolTint() const override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void onUserCloses() override;
    void letGo() override;

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

    afx_msg void onPreviousDefinition();
    afx_msg void onNextDefinition();
    afx_msg void onInsertDefinition();
    afx_msg void onDeleteDefinition();
    afx_msg void onDuplicateDefinition();
    afx_msg void onBlendKillFocus();
    afx_msg void onVariationKillFocus();
    afx_msg void onTilingKillFocus();
    afx_msg void onBlendSpin(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void onVariationSpin(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void onTilingSpin(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg LRESULT onColourChanged(WPARAM wParam, LPARAM controlId);
    afx_msg LRESULT onTextureChanged(WPARAM wParam, LPARAM controlId);
    afx_msg void onTerrainTypes();

    DECLARE_MESSAGE_MAP()

private:
    /// Copy the controls into the members; after a refused value the controls show the members again. False
    /// when the editor was closed, which may happen under the message box of a refusal.
    bool readControls();
    void exchangeHeight(CDataExchange* pDX);
    void initCloseButton();
    void initTabs();
    void initToggles();
    void readTerrainCaptions();
    void refreshToolButtons();
    void refreshStrengthAndBrushes();
    void refreshUndoIndicators();

    // What the ground looks like: texture definitions and their preview, base textures, colours.
    void exchangeSurfaceControls(CDataExchange* pDX);
    void initSurfaceControls();
    /// End the dialogs that stand open over the panel: the map and its scene may be gone afterwards.
    void abandonDialogs();
    /// The definition shown, or null when the map has none.
    qxCMapMultiTexture* currentDefinition();
    /// Show the current definition, and enable what needs one.
    void refreshDefinition();
    /// Make and show the picture of the current definition, or of the detail texture on the Details tab.
    void showPreview();
    void showPreviewAfter(std::initializer_list<CTexturePreview::Item> changed);
    void storeTint(const CColourButton& swatch, qxCColour qxCMapMultiTexture::*tint);
    void storeTypedShare(float& field, float qxCMapMultiTexture::*share);
    void stepShare(float& field, float qxCMapMultiTexture::*share, int delta);

    CTabCtrl m_tabs;
    CSliderCtrl m_strengthSlider;
    CSpinButtonCtrl m_tilingSpin;
    CSpinButtonCtrl m_blendSpin;
    CSpinButtonCtrl m_variationSpin;
    CProgressCtrl m_undoFill;
    CColourButton m_toolTint;
    CColourButton m_tint1;
    CColourButton m_tint2;
    CColourButton m_ambient;
    CColourButton m_diffuse;
    std::array<CTexturePickerButton, 3> m_basePickers; ///< smooth, rough, water
    CTexturePickerButton m_detailPicker;
    CImagePreview m_previewImage;
    CTexturePreview m_preview;
    CTerrainTypeDlg* m_pTerrainTypeDlg = nullptr; ///< while it runs

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
};
