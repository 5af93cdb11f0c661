#include "terrain/panel/map_editor_dlg.h"

#include "controls/stepped_value.h"
#include "engine/qx_map.h"
#include "engine/qx_texture.h"
#include "resources/resource_ids.h"
#include "terrain/panel/terrain_type_dlg.h"

#include <algorithm>
#include <array>

namespace {

constexpr int LOWEST_TILING = 1;
constexpr int HIGHEST_TILING = 256;
constexpr std::array<qxMapLayerType, 3> BASE_LAYERS = {qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater};
constexpr std::array<int, 3> BASE_PICKERS = {IDC_SMOOTH_TEXTURE, IDC_ROUGH_TEXTURE, IDC_WATER_TEXTURE};

void redraw(CWnd& control) {
    control.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

int iDeltaOf(const NMHDR* notification) {
    return reinterpret_cast<const NMUPDOWN*>(notification)->iDelta;
}

} // namespace

void CMapEditorDlg::exchangeSurfaceControls(CDataExchange* pDX) {
    DDX_Control(pDX, IDC_BLEND_SPIN, m_blendSpin);
    DDX_Control(pDX, IDC_VARIATION_SPIN, m_variationSpin);
    DDX_Control(pDX, IDC_TINT_COLOUR, m_toolTint);
    DDX_Control(pDX, IDC_TINT_1, m_tint1);
    DDX_Control(pDX, IDC_TINT_2, m_tint2);
    DDX_Control(pDX, IDC_AMBIENT_COLOUR, m_ambient);
    DDX_Control(pDX, IDC_DIFFUSE_COLOUR, m_diffuse);
    for (std::size_t i = 0; i < BASE_PICKERS.size(); ++i) {
        DDX_Control(pDX, BASE_PICKERS[i], m_basePickers[i]);
    }
    DDX_Control(pDX, IDC_DETAIL_TEXTURE, m_detailPicker);
    DDX_Control(pDX, IDC_TEXTURE_PREVIEW, m_previewImage);
}

void CMapEditorDlg::initSurfaceControls() {
    constexpr qxCColour WHITE{255, 255, 255, 255};
    for (CColourButton* swatch : {&m_toolTint, &m_tint1, &m_tint2}) {
        swatch->setColour(WHITE);
    }
    m_fBlend = 0.0F;
    m_fVariation = 0.0F;
    m_preview.invalidateAll();
    m_nTextureNumber = m_pMap->getCurrentMultiTexture();
    refreshDefinition();

    qxCScene* const scene = m_pMap->getScene();
    for (std::size_t i = 0; i < BASE_LAYERS.size(); ++i) {
        m_basePickers[i].setScene(scene);
        m_basePickers[i].setChosenTexture(m_pMap->getTexture(BASE_LAYERS[i]));
        redraw(m_basePickers[i]);
    }
    m_detailPicker.setScene(scene);
    m_detailPicker.setChosenTexture(nullptr);
    redraw(m_detailPicker);
    m_ambient.setColour(m_pMap->getAmbient());
    m_diffuse.setColour(m_pMap->getDiffuse());
}

void CMapEditorDlg::abandonDialogs() {
    for (CTexturePickerButton& picker : m_basePickers) {
        picker.abandon();
    }
    m_detailPicker.abandon();
    if (m_pTerrainTypeDlg != nullptr) {
        m_pTerrainTypeDlg->abandon();
    }
}

qxCColour CMapEditorDlg::getToolTint() const {
    return m_toolTint.getColour();
}

qxCMapMultiTexture* CMapEditorDlg::currentDefinition() {
    return m_pMap != nullptr && m_pMap->getNumMultiTextures() > 0 ? m_pMap->getMultiTexture(m_nTextureNumber)
                                                                  : nullptr;
}

void CMapEditorDlg::refreshDefinition() {
    const int count = m_pMap->getNumMultiTextures();
    m_nTextureNumber =
        std::clamp(m_nTextureNumber, 0, std::max(count - 1, 0)); // the host may have removed some
    const qxCMapMultiTexture* const definition = currentDefinition();
    for (const int control :
         {IDC_TINT_1, IDC_TINT_2, IDC_BLEND, IDC_VARIATION, IDC_GLOBAL_SMOOTH, IDC_TERRAIN_TYPES}) {
        GetDlgItem(control)->EnableWindow(definition != nullptr ? TRUE : FALSE);
    }
    if (definition != nullptr) {
        m_pMap->setCurrentMultiTexture(m_nTextureNumber);
        m_tint1.setColour(definition->tint1);
        m_tint2.setColour(definition->tint2);
        redraw(m_tint1);
        redraw(m_tint2);
        m_fBlend = definition->blend;
        m_fVariation = definition->variation;
        m_preview.invalidateAll();
        showPreview();
    }
    showMembers();
}

void CMapEditorDlg::showPreview() {
    const bool details = isDetailsTab();
    GetDlgItem(IDC_PREVIOUS_TEXTURE)->EnableWindow(details ? FALSE : TRUE);
    GetDlgItem(IDC_NEXT_TEXTURE)->EnableWindow(details ? FALSE : TRUE);
    m_detailPicker.EnableWindow(details ? TRUE : FALSE);
    const qxCImageFile* const image =
        details ? m_preview.showDetail(m_pDetailTexture)
                : m_preview.showDefinition({m_tint1.getColour(), m_tint2.getColour(), m_fBlend, m_fVariation},
                                           *m_pMap);
    m_previewImage.setImage(image, 1, 1);
    m_previewImage.Invalidate();
    showMembers();
}

void CMapEditorDlg::showPreviewAfter(std::initializer_list<CTexturePreview::Item> changed) {
    for (const CTexturePreview::Item item : changed) {
        m_preview.invalidate(item);
    }
    showPreview();
}

void CMapEditorDlg::onPreviousDefinition() {
    if (m_pMap != nullptr && m_nTextureNumber > 0) {
        --m_nTextureNumber;
        refreshDefinition();
    }
}

void CMapEditorDlg::onNextDefinition() {
    if (m_pMap != nullptr && m_nTextureNumber < m_pMap->getNumMultiTextures() - 1) {
        ++m_nTextureNumber;
        refreshDefinition();
    }
}

void CMapEditorDlg::onInsertDefinition() {
    if (m_pMap == nullptr) {
        return;
    }
    m_pMap->addMultiTexture();
    m_nTextureNumber = m_pMap->getNumMultiTextures() - 1;
    refreshDefinition();
}

void CMapEditorDlg::onDeleteDefinition() {
    if (m_pMap == nullptr) {
        return;
    }
    m_pMap->removeMultiTexture(m_nTextureNumber);
    m_nTextureNumber = std::max(m_nTextureNumber - 1, 0);
    refreshDefinition();
}

void CMapEditorDlg::onDuplicateDefinition() {
    const qxCMapMultiTexture* const original = currentDefinition();
    if (original == nullptr) {
        return;
    }
    const qxCMapMultiTexture values = *original;
    if (qxCMapMultiTexture* const copy = m_pMap->addMultiTexture()) {
        copy->tint1 = values.tint1;
        copy->tint2 = values.tint2;
        copy->blend = values.blend;
        copy->variation = values.variation;
    }
    m_nTextureNumber = m_pMap->getNumMultiTextures() - 1;
    refreshDefinition();
}

void CMapEditorDlg::onBlendKillFocus() {
    storeTypedShare(m_fBlend, &qxCMapMultiTexture::blend);
}

void CMapEditorDlg::onVariationKillFocus() {
    storeTypedShare(m_fVariation, &qxCMapMultiTexture::variation);
}

void CMapEditorDlg::storeTypedShare(float& field, float qxCMapMultiTexture::*share) {
    if (!readControls()) {
        return;
    }
    if (qxCMapMultiTexture* const definition = currentDefinition()) {
        // The engine's records hold 0 to 1; what was typed beyond is brought to the nearer end.
        field = std::clamp(field, 0.0F, 1.0F);
        definition->*share = field;
        showPreviewAfter({CTexturePreview::BLEND_MAP, CTexturePreview::COMPOSITE});
    }
}

void CMapEditorDlg::onBlendSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    stepShare(m_fBlend, &qxCMapMultiTexture::blend, iDeltaOf(pNMHDR));
}

void CMapEditorDlg::onVariationSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    stepShare(m_fVariation, &qxCMapMultiTexture::variation, iDeltaOf(pNMHDR));
}

void CMapEditorDlg::stepShare(float& field, float qxCMapMultiTexture::*share, int delta) {
    if (qxCMapMultiTexture* const definition = currentDefinition()) {
        field = steppedShare(field, delta);
        definition->*share = field;
        showMembers();
        showPreviewAfter({CTexturePreview::BLEND_MAP, CTexturePreview::COMPOSITE});
    }
}

void CMapEditorDlg::onTilingKillFocus() {
    if (!readControls()) {
        return;
    }
    // The engine takes 1 to 256; a typed number beyond is brought to the nearer end, as the spin does.
    m_nTiling = std::clamp(m_nTiling, LOWEST_TILING, HIGHEST_TILING);
    m_pMap->setTextureTiling(m_nTiling);
    m_pMap->invalidate();
    showMembers();
}

void CMapEditorDlg::onTilingSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    if (m_pMap == nullptr) {
        return;
    }
    const int step = iDeltaOf(pNMHDR) < 0 ? 1 : -1;
    m_nTiling = std::clamp(m_nTiling + step, LOWEST_TILING, HIGHEST_TILING);
    m_pMap->setTextureTiling(m_nTiling);
    showMembers();
}

LRESULT CMapEditorDlg::onColourChanged(WPARAM /*wParam*/, LPARAM controlId) {
    if (m_pMap == nullptr) {
        return 1;
    }
    switch (controlId) {
    case IDC_TINT_1:
        storeTint(m_tint1, &qxCMapMultiTexture::tint1);
        break;
    case IDC_TINT_2:
        storeTint(m_tint2, &qxCMapMultiTexture::tint2);
        break;
    case IDC_AMBIENT_COLOUR:
        m_pMap->setAmbient(m_ambient.getColour());
        break;
    case IDC_DIFFUSE_COLOUR:
        m_pMap->setDiffuse(m_diffuse.getColour());
        break;
    default:
        break;
    }
    showPreview();
    return 1;
}

void CMapEditorDlg::storeTint(const CColourButton& swatch, qxCColour qxCMapMultiTexture::*tint) {
    if (qxCMapMultiTexture* const definition = currentDefinition()) {
        definition->*tint = swatch.getColour();
        m_preview.invalidate(CTexturePreview::TINT_MAP);
        m_preview.invalidate(CTexturePreview::COMPOSITE);
    }
}

LRESULT CMapEditorDlg::onTextureChanged(WPARAM /*wParam*/, LPARAM controlId) {
    if (m_pMap == nullptr) {
        return 1;
    }
    if (controlId == IDC_DETAIL_TEXTURE) {
        m_pDetailTexture = m_detailPicker.getChosenTexture();
        showPreview();
        return 1;
    }
    for (std::size_t i = 0; i < BASE_PICKERS.size(); ++i) {
        if (controlId == BASE_PICKERS[i]) {
            m_pMap->setTexture(BASE_LAYERS[i], m_basePickers[i].getChosenTexture());
            refreshDefinition();
        }
    }
    return 1;
}

void CMapEditorDlg::onTerrainTypes() {
    if (m_pMap == nullptr) {
        return;
    }
    CTerrainTypeDlg dialog(m_pMap, this);
    m_pTerrainTypeDlg = &dialog;
    dialog.DoModal();
    m_pTerrainTypeDlg = nullptr;
}
