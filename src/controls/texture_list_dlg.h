#pragma once

#include "controls/editor_dialog.h"
#include "controls/image_preview.h"
#include "engine/qx_image_file.h"

class qxCScene;
class qxCTexture;

/// Stands where a texture's name would when there is no texture.
inline constexpr const char* NO_TEXTURE_CAPTION = "-NONE-";

/// The modal Texture List: the user picks one texture of the scene, imports image files as new textures and
/// sets a texture's pixel format and size. What is changed in the scene stays, whichever way the dialog ends.
class CTextureListDlg : public CEditorDialog {
public:
    /// `scene` and `current`, the texture chosen at first, are the engine's; without a scene the dialog ends
    /// with IDCANCEL as soon as it starts.
    CTextureListDlg(qxCScene* scene, qxCTexture* current, CWnd* parent);

    /// The texture chosen when the dialog ended with IDOK; null for none.
    qxCTexture* getSelectedTexture() const { return m_pSelected; }
    /// End the running dialog with IDCANCEL and touch the scene no more.
    void abandon();

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    afx_msg void onImport();
    afx_msg void onTextureChanged();
    afx_msg void onTextureDoubleClicked();
    afx_msg void onFormatChanged();
    afx_msg void onSizeChanged();

    DECLARE_MESSAGE_MAP()

private:
    void refreshList();
    void showSelection();
    bool takeSelection();
    void importFile(const CString& path);

    CComboBox m_sizes;
    CComboBox m_formats;
    CImagePreview m_preview;
    CListBox m_textures;
    qxCImageFile m_previewImage;
    qxCTexture* m_pSelected;
    qxCScene* m_pScene;
};
