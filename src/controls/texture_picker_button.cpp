#include "controls/texture_picker_button.h"

#include "controls/texture_list_dlg.h"
#include "engine/qx_texture.h"

BEGIN_MESSAGE_MAP(CTexturePickerButton, CButton)
ON_CONTROL_REFLECT(BN_CLICKED, &CTexturePickerButton::OnClicked)
END_MESSAGE_MAP()

void CTexturePickerButton::setScene(qxCScene* scene) {
    m_pScene = scene;
}

void CTexturePickerButton::setChosenTexture(qxCTexture* texture) {
    m_pTexture = texture;
    SetWindowText(texture != nullptr ? texture->name.getString() : NO_TEXTURE_CAPTION);
}

void CTexturePickerButton::abandon() {
    m_pScene = nullptr;
    m_pTexture = nullptr;
    if (m_pOpenList != nullptr) {
        m_pOpenList->abandon();
    }
}

void CTexturePickerButton::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) {
    CButton::DrawItem(lpDrawItemStruct);
}

void CTexturePickerButton::OnClicked() {
    CTextureListDlg list(m_pScene, m_pTexture, nullptr);
    m_pOpenList = &list;
    const INT_PTR result = list.DoModal();
    m_pOpenList = nullptr;
    if (result != IDOK) {
        return;
    }
    setChosenTexture(list.getSelectedTexture());
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    if (CWnd* const parent = GetParent()) {
        parent->SendMessage(UM_TEXTURECHANGED, 0, GetDlgCtrlID());
    }
}
