#include "terrain/panel/terrain_type_dlg.h"

#include "engine/qx_map.h"
#include "module/visit.h"
#include "resources/resource_ids.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numeric>

namespace {

constexpr int KEEP_TOGGLE = 1;

/// A record may hold what a field could not read back, such as what is not a number: it is shown as 0.
float shownNumber(float value) {
    return std::isfinite(value) ? value : 0.0F;
}

CString shownText(float value) {
    CString text;
    text.Format("%.*g", FLT_DIG, static_cast<double>(value));
    return text;
}

/// Exchanges a number of which the field shows fewer digits than the record has: a field that was only passed
/// through leaves the number as it was.
void exchangeNumber(CDataExchange* pDX, int controlId, float& value) {
    const float before = value;
    DDX_Text(pDX, controlId, value);
    if (pDX->m_bSaveAndValidate != FALSE && shownText(value) == shownText(before)) {
        value = before;
    }
}

} // namespace

BEGIN_MESSAGE_MAP(CTerrainTypeDlg, CEditorDialog)
ON_CBN_SELCHANGE(IDC_TERRAIN_TYPE, &CTerrainTypeDlg::onTypeChanged)
ON_EN_KILLFOCUS(IDC_EFFECT_ON_NEIGHBOURS, &CTerrainTypeDlg::onEffectOnNeighboursLeft)
ON_EN_KILLFOCUS(IDC_NOISE, &CTerrainTypeDlg::onNoiseLeft)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_FILTER_FIRST, IDC_FILTER_LAST, &CTerrainTypeDlg::onFilterLeft)
ON_EN_KILLFOCUS(IDC_WEIGHTING, &CTerrainTypeDlg::onWeightingLeft)
ON_BN_CLICKED(IDC_PRESERVE_FLAT_AREAS, &CTerrainTypeDlg::onPreserveFlatAreas)
ON_BN_CLICKED(IDC_NORMALIZE, &CTerrainTypeDlg::onNormalize)
END_MESSAGE_MAP()

CTerrainTypeDlg::CTerrainTypeDlg(qxCMap* map, CWnd* parent)
    : CEditorDialog(IDD_TERRAIN_TYPE_EDITOR, parent, 0, 0, "Advanced >>", "Advanced <<", KEEP_TOGGLE)
    , m_pMap(map) {}

void CTerrainTypeDlg::abandon() {
    m_bEnding = true; // the field that has the focus loses it: nobody is to be asked about its value any more
    m_pMap = nullptr;
    m_pTerrainDef = nullptr;
    EndDialog(IDCANCEL);
}

void CTerrainTypeDlg::DoDataExchange(CDataExchange* pDX) {
    CEditorDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_TERRAIN_TYPE, m_types);
    exchangeNumber(pDX, IDC_EFFECT_ON_NEIGHBOURS, m_fEffectOnNeighbours);
    exchangeNumber(pDX, IDC_NOISE, m_fNoise);
    for (int row = 0; row < FILTER_EDGE; ++row) {
        for (int column = 0; column < FILTER_EDGE; ++column) {
            // The controls are counted row by row, the record's cells column by column.
            exchangeNumber(pDX, IDC_FILTER_FIRST + FILTER_EDGE * row + column,
                           m_filter[static_cast<std::size_t>(FILTER_EDGE * column + row)]);
        }
    }
    exchangeNumber(pDX, IDC_WEIGHTING, m_fWeighting);
    DDX_Check(pDX, IDC_PRESERVE_FLAT_AREAS, m_bPreserveFlatAreas);
}

BOOL CTerrainTypeDlg::OnInitDialog() {
    const CVisit visit; // opening is no command, but asks the host as much
    m_bEnding = false;
    CEditorDialog::OnInitDialog();
    const int count = m_pMap != nullptr ? m_pMap->getNumTerrainDefs() : 0;
    for (int i = 0; i < count; ++i) {
        if (const _qxMapTerrainDef* const type = m_pMap->getTerrainDef(i)) {
            const int item = m_types.AddString(type->name);
            m_types.SetItemData(item, static_cast<DWORD_PTR>(i));
        }
    }
    m_types.SetCurSel(0);
    loadSelected();
    UpdateData(FALSE);
    return TRUE;
}

void CTerrainTypeDlg::loadSelected() {
    const int item = m_types.GetCurSel();
    if (m_pMap == nullptr || item == CB_ERR) {
        return;
    }
    m_pTerrainDef = m_pMap->getTerrainDef(static_cast<int>(m_types.GetItemData(item)));
    if (m_pTerrainDef == nullptr) {
        return;
    }
    m_fEffectOnNeighbours = shownNumber(m_pTerrainDef->effectOnNeighbours);
    m_fNoise = shownNumber(m_pTerrainDef->noise);
    m_bPreserveFlatAreas = m_pTerrainDef->preserveFlatAreas ? 1 : 0;
    m_fWeighting = shownNumber(m_pTerrainDef->weighting);
    std::ranges::transform(m_pTerrainDef->filter, m_filter.begin(), shownNumber);
}

/// Read the controls, let `write` store what it is about in the record, and show what holds. After a value
/// that was refused the last good one is shown again, so that the field does not hold the user captive.
template <class Write> void CTerrainTypeDlg::store(Write write) {
    if (m_bEnding) {
        return;
    }
    if (UpdateData(TRUE) != FALSE && m_pTerrainDef != nullptr) {
        write(*m_pTerrainDef);
    }
    UpdateData(FALSE);
}

void CTerrainTypeDlg::onTypeChanged() {
    UpdateData(TRUE);
    loadSelected();
    UpdateData(FALSE);
}

void CTerrainTypeDlg::onEffectOnNeighboursLeft() {
    store([this](_qxMapTerrainDef& record) { record.effectOnNeighbours = m_fEffectOnNeighbours; });
}

void CTerrainTypeDlg::onNoiseLeft() {
    store([this](_qxMapTerrainDef& record) { record.noise = m_fNoise; });
}

void CTerrainTypeDlg::onFilterLeft(UINT /*controlId*/) {
    store([this](_qxMapTerrainDef& record) { std::ranges::copy(m_filter, record.filter); });
}

void CTerrainTypeDlg::onWeightingLeft() {
    store([this](_qxMapTerrainDef& record) { record.weighting = m_fWeighting; });
}

void CTerrainTypeDlg::onPreserveFlatAreas() {
    store([this](_qxMapTerrainDef& record) { record.preserveFlatAreas = m_bPreserveFlatAreas != 0; });
}

void CTerrainTypeDlg::onNormalize() {
    if (m_pTerrainDef != nullptr) {
        m_pTerrainDef->weighting =
            std::accumulate(std::begin(m_pTerrainDef->filter), std::end(m_pTerrainDef->filter), 0.0F);
        m_fWeighting = m_pTerrainDef->weighting;
    }
    UpdateData(FALSE);
}

void CTerrainTypeDlg::OnCancel() {
    // The field that still has the focus loses it with the window: what was half typed in it is neither
    // stored nor complained of.
    m_bEnding = true;
    CEditorDialog::OnCancel();
}
