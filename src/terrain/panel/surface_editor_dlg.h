#pragma once

#include "controls/colour_button.h"
#include "controls/hosted_editor_dlg.h"
#include "controls/image_preview.h"
#include "controls/texture_picker_button.h"
#include "terrain/definition_editor.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/texture_preview.h"

#include <array>
#include <initializer_list>

class CTerrainTypeDlg;

/// The half of the map editor panel that says what the ground looks like: texture definitions and their
/// preview, base textures, colours, tiling.
class CSurfaceEditorDlg : public CHostedEditorDlg, public CMapEditorModel {
public:
    void showMembers() override;
    qxCColour getToolTint() const override;

protected:
    using CHostedEditorDlg::CHostedEditorDlg;

    void DoDataExchange(CDataExchange* pDX) override;
    /// The numbers of this half, which come in the middle of the panel's: what stands behind a number that is
    /// refused is not read.
    void exchangeNumbers(CDataExchange* pDX);
    /// Let the controls show what the map has, which is bound.
    void initSurfaceControls();
    void letGo() override;

    /// Copy the controls into the members; after a refused value the controls show the members again. False
    /// when the editor was closed, which may happen under the message box of a refusal.
    bool readControls();
    /// Make and show the picture of the current definition, or of the detail texture on the Details tab.
    void showPreview();

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
    /// Show the current definition, and enable what needs one.
    void refreshDefinition();
    void showPreviewAfter(std::initializer_list<CTexturePreview::Item> changed);
    void storeTint(const CColourButton& swatch, CDefinitionEditor::Tint tint);
    void storeTypedShare(float& field, CDefinitionEditor::Share share);
    void stepShare(float& field, CDefinitionEditor::Share share, int delta);

    CSpinButtonCtrl m_tilingSpin;
    CSpinButtonCtrl m_blendSpin;
    CSpinButtonCtrl m_variationSpin;
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

    CDefinitionEditor m_definitions;
    float m_fBlend = 0.0F;
    float m_fVariation = 0.0F;
    int m_nTiling = 0;
};
