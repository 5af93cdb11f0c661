#pragma once

#include "controls/editor_dialog.h"

#include <array>

class qxCMap;
struct _qxMapTerrainDef;

/// The modal Terrain Type Editor: the user picks one of the map's terrain types and edits the parameters of
/// its smoothing pass. A value goes into the engine's record as soon as its field loses the focus and stays
/// there, whichever way the dialog ends.
class CTerrainTypeDlg : public CEditorDialog {
public:
    /// `map` is the engine's. A map without terrain types can be opened and nothing is written.
    explicit CTerrainTypeDlg(qxCMap* map, CWnd* parent = nullptr);

    /// End the running dialog with IDCANCEL and touch the map no more.
    void abandon();

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnCancel() override;
    afx_msg void onTypeChanged();
    afx_msg void onEffectOnNeighboursLeft();
    afx_msg void onNoiseLeft();
    afx_msg void onFilterLeft(UINT controlId);
    afx_msg void onWeightingLeft();
    afx_msg void onPreserveFlatAreas();
    afx_msg void onNormalize();

    DECLARE_MESSAGE_MAP()

private:
    static constexpr int FILTER_EDGE = 5;

    template <class Write> void store(Write write);
    void loadSelected();

    qxCMap* m_pMap;
    _qxMapTerrainDef* m_pTerrainDef = nullptr; ///< the record being edited, null for none
    bool m_bEnding = false;
    CComboBox m_types;
    float m_fEffectOnNeighbours = 0.0F;
    float m_fNoise = 0.0F;
    float m_fWeighting = 0.0F;
    int m_bPreserveFlatAreas = 0;
    std::array<float, FILTER_EDGE * FILTER_EDGE> m_filter{}; ///< as in the record: column by column
};
