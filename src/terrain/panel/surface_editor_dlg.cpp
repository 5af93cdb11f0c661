#include "terrain/panel/surface_editor_dlg.h"

#include "controls/finite_field.h"
#include "engine/qx_map.h"
#include "engine/qx_texture.h"
#include "resources/resource_ids.h"
#include "terrain/panel/terrain_type_dlg.h"

#include <algorithm>
#include <array>

BEGIN_MESSAGE_MAP(CSurfaceEditorDlg, CHostedEditorDlg)
ON_BN_CLICKED(IDC_PREVIOUS_TEXTURE, &CSurfaceEditorDlg::onPreviousDefinition)
ON_BN_CLICKED(IDC_NEXT_TEXTURE, &CSurfaceEditorDlg::onNextDefinition)
ON_BN_CLICKED(IDC_INSERT_DEFINITION, &CSurfaceEditorDlg::onInsertDefinition)
ON_BN_CLICKED(IDC_DELETE_DEFINITION, &CSurfaceEditorDlg::onDeleteDefinition)
ON_BN_CLICKED(IDC_DUPLICATE_DEFINITION, &CSurfaceEditorDlg::onDuplicateDefinition)
ON_EN_KILLFOCUS(IDC_BLEND, &CSurfaceEditorDlg::onBlendKillFocus)
ON_EN_KILLFOCUS(IDC_VARIATION, &CSurfaceEditorDlg::onVariationKillFocus)
ON_EN_KILLFOCUS(IDC_TILING, &CSurfaceEditorDlg::onTilingKillFocus)
ON_NOTIFY(UDN_DELTAPOS, IDC_BLEND_SPIN, &CSurfaceEditorDlg::onBlendSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_VARIATION_SPIN, &CSurfaceEditorDlg::onVariationSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_TILING_SPIN, &CSurfaceEditorDlg::onTilingSpin)
ON_MESSAGE(UM_COLOURCHANGED, &CSurfaceEditorDlg::onColourChanged)
ON_MESSAGE(UM_TEXTURECHANGED, &CSurfaceEditorDlg::onTextureChanged)
ON_BN_CLICKED(IDC_TERRAIN_TYPES, &CSurfaceEditorDlg::onTerrainTypes)
END_MESSAGE_MAP()

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

void CSurfaceEditorDlg::DoDataExchange(CDataExchange* pDX) {
    CHostedEditorDlg::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_TILING_SPIN, m_tilingSpin);
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

void CSurfaceEditorDlg::exchangeNumbers(CDataExchange* pDX) {
    exchangeFinite(pDX, IDC_VARIATION, m_fVariation);
    exchangeFinite(pDX, IDC_BLEND, m_fBlend);
    DDX_Text(pDX, IDC_TEXTURE_NUMBER, m_definitions.m_nTextureNumber);
    DDX_Text(pDX, IDC_TILING, m_nTiling);
}

void CSurfaceEditorDlg::showMembers() {
    UpdateData(FALSE);
}

bool CSurfaceEditorDlg::readControls() {
    if (m_pMap == nullptr || isEnding()) {
        return false;
    }
    const bool accepted = UpdateData(TRUE) != FALSE;
    if (m_pMap == nullptr) {
        return false;
    }
    if (!accepted) {
        showMembers();
    }
    return true;
}

void CSurfaceEditorDlg::initSurfaceControls() {
    constexpr qxCColour WHITE{255, 255, 255, 255};
    for (CColourButton* swatch : {&m_toolTint, &m_tint1, &m_tint2}) {
        swatch->setColour(WHITE);
    }
    m_fBlend = 0.0F;
    m_fVariation = 0.0F;
    m_nTiling = m_pMap->getTextureTiling();
    m_preview.invalidateAll();
    m_definitions.bind(m_pMap);
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

void CSurfaceEditorDlg::letGo() {
    m_pMap = nullptr;
    m_definitions.bind(nullptr);
    for (CTexturePickerButton& picker : m_basePickers) {
        picker.abandon();
    }
    m_detailPicker.abandon();
    if (m_pTerrainTypeDlg != nullptr) {
        m_pTerrainTypeDlg->abandon();
    }
}

qxCColour CSurfaceEditorDlg::getToolTint() const {
    return m_toolTint.getColour();
}

void CSurfaceEditorDlg::refreshDefinition() {
    const qxCMapMultiTexture* const definition = m_definitions.settle();
    for (const int control :
         {IDC_TINT_1, IDC_TINT_2, IDC_BLEND, IDC_VARIATION, IDC_GLOBAL_SMOOTH, IDC_TERRAIN_TYPES}) {
        GetDlgItem(control)->EnableWindow(definition != nullptr ? TRUE : FALSE);
    }
    if (definition != nullptr) {
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

void CSurfaceEditorDlg::showPreview() {
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

void CSurfaceEditorDlg::showPreviewAfter(std::initializer_list<CTexturePreview::Item> changed) {
    for (const CTexturePreview::Item item : changed) {
        m_preview.invalidate(item);
    }
    showPreview();
}

void CSurfaceEditorDlg::onPreviousDefinition() {
    if (m_definitions.previous()) {
        refreshDefinition();
    }
}

void CSurfaceEditorDlg::onNextDefinition() {
    if (m_definitions.next()) {
        refreshDefinition();
    }
}

void CSurfaceEditorDlg::onInsertDefinition() {
    if (m_definitions.insert()) {
        refreshDefinition();
    }
}

void CSurfaceEditorDlg::onDeleteDefinition() {
    if (m_definitions.remove()) {
        refreshDefinition();
    }
}

void CSurfaceEditorDlg::onDuplicateDefinition() {
    if (m_definitions.duplicate()) {
        refreshDefinition();
    }
}

void CSurfaceEditorDlg::onBlendKillFocus() {
    storeTypedShare(m_fBlend, &qxCMapMultiTexture::blend);
}

void CSurfaceEditorDlg::onVariationKillFocus() {
    storeTypedShare(m_fVariation, &qxCMapMultiTexture::variation);
}

void CSurfaceEditorDlg::storeTypedShare(float& field, CDefinitionEditor::Share share) {
    if (!readControls()) {
        return;
    }
    if (const std::optional<float> stored = m_definitions.storeShare(share, field)) {
        field = *stored;
        showPreviewAfter({CTexturePreview::BLEND_MAP, CTexturePreview::COMPOSITE});
    }
}

void CSurfaceEditorDlg::onBlendSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    stepShare(m_fBlend, &qxCMapMultiTexture::blend, iDeltaOf(pNMHDR));
}

void CSurfaceEditorDlg::onVariationSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    stepShare(m_fVariation, &qxCMapMultiTexture::variation, iDeltaOf(pNMHDR));
}

void CSurfaceEditorDlg::stepShare(float& field, CDefinitionEditor::Share share, int delta) {
    if (const std::optional<float> stored = m_definitions.stepShare(share, field, delta)) {
        field = *stored;
        showMembers();
        showPreviewAfter({CTexturePreview::BLEND_MAP, CTexturePreview::COMPOSITE});
    }
}

void CSurfaceEditorDlg::onTilingKillFocus() {
    if (!readControls()) {
        return;
    }
    // The engine takes 1 to 256; a typed number beyond is brought to the nearer end, as the spin does.
    m_nTiling = std::clamp(m_nTiling, LOWEST_TILING, HIGHEST_TILING);
    m_pMap->setTextureTiling(m_nTiling);
    m_pMap->invalidate();
    showMembers();
}

void CSurfaceEditorDlg::onTilingSpin(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    if (m_pMap == nullptr) {
        return;
    }
    const int step = iDeltaOf(pNMHDR) < 0 ? 1 : -1;
    m_nTiling = std::clamp(m_nTiling + step, LOWEST_TILING, HIGHEST_TILING);
    m_pMap->setTextureTiling(m_nTiling);
    showMembers();
}

LRESULT CSurfaceEditorDlg::onColourChanged(WPARAM /*wParam*/, LPARAM controlId) {
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

void CSurfaceEditorDlg::storeTint(const CColourButton& swatch, CDefinitionEditor::Tint tint) {
    if (m_definitions.storeTint(tint, swatch.getColour())) {
        m_preview.invalidate(CTexturePreview::TINT_MAP);
        m_preview.invalidate(CTexturePreview::COMPOSITE);
    }
}

LRESULT CSurfaceEditorDlg::onTextureChanged(WPARAM /*wParam*/, LPARAM controlId) {
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

void CSurfaceEditorDlg::onTerrainTypes() {
    if (m_pMap == nullptr) {
        return;
    }
    CTerrainTypeDlg dialog(m_pMap, this);
    m_pTerrainTypeDlg = &dialog;
    dialog.DoModal();
    m_pTerrainTypeDlg = nullptr;
}
