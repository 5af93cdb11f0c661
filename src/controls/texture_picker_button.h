#pragma once

#include "platform/framework.h"

class CTextureListDlg;
class qxCScene;
class qxCTexture;

/// Tells the parent of a texture button that the user chose a texture: wParam 0, lParam the button's control
/// id.
inline constexpr UINT UM_TEXTURECHANGED = 2026;

/// A push button that stands for one texture of the scene and shows its name. A click opens the Texture List.
/// Belongs to its panel and stands on a push button of the panel's template; texture and scene are the
/// engine's.
class CTexturePickerButton : public CButton {
public:
    /// The scene whose textures are offered; null for none.
    void setScene(qxCScene* scene);
    /// The texture held, null for none. The caption follows.
    void setChosenTexture(qxCTexture* texture);
    qxCTexture* getChosenTexture() const { return m_pTexture; }
    /// Forget scene and texture and end an open Texture List as its "Cancel" does: for a panel that is closed
    /// while the list stands open, after which the scene may be gone.
    void abandon();

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    afx_msg void OnClicked();

    DECLARE_MESSAGE_MAP()

private:
    qxCTexture* m_pTexture = nullptr;
    qxCScene* m_pScene = nullptr;
    CTextureListDlg* m_pOpenList = nullptr; ///< while it runs
};
