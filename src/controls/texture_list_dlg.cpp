#include "controls/texture_list_dlg.h"

#include "controls/item_combo.h"
#include "engine/qx_scene.h"
#include "engine/qx_texture.h"
#include "module/module_state.h"
#include "module/visit.h"
#include "resources/resource_ids.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int KEEP_TOGGLE = 1;
constexpr int NAME_LENGTH_MAX = 12;
constexpr DWORD FILE_NAMES_SIZE = 2000;

constexpr std::array<ComboItem, 8> FORMATS = {{
    {"Auto", qxPixelFormatAuto},
    {"Pal", qxPixelFormatPalette},
    {"Pal+Alpha", qxPixelFormatPaletteAlpha},
    {"Grey", qxPixelFormatGrey},
    {"Grey+Alpha", qxPixelFormatGreyAlpha},
    {"RGB 565", qxPixelFormatRgb565},
    {"RGBA 1555", qxPixelFormatRgba1555},
    {"RGBA 4444", qxPixelFormatRgba4444},
}};

constexpr std::array<ComboItem, 10> SIZES = {{
    {"Empty", qxTextureSizeEmpty},
    {"1x1", qxTextureSize1},
    {"2x2", qxTextureSize2},
    {"4x4", qxTextureSize4},
    {"8x8", qxTextureSize8},
    {"16x16", qxTextureSize16},
    {"32x32", qxTextureSize32},
    {"64x64", qxTextureSize64},
    {"128x128", qxTextureSize128},
    {"256x256", qxTextureSize256},
}};

/// What follows the last separator, of this platform or of the one the scenes come from.
std::string_view withoutDirectory(std::string_view path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

/// Characters of a UTF-8 text, not bytes: the limit is one of what the user sees.
int countCharacters(std::string_view text) {
    return static_cast<int>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// The files that the user picks, none after "Cancel".
std::vector<CString> askForFiles() {
    std::array<char, FILE_NAMES_SIZE> names{};
    const CString preset = g_strTextureDir + "\\*.tga";
    std::copy_n(preset.GetString(), std::min(preset.GetLength(), static_cast<int>(FILE_NAMES_SIZE) - 1),
                names.begin());
    CFileDialog dialog(TRUE, "tga", preset, OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       "TGA Files (*.tga)|*.tga|All Files (*.*)|*.*||", CWnd::FromHandle(g_hHostWnd));
    dialog.m_ofn.lpstrFile = names.data();
    dialog.m_ofn.nMaxFile = FILE_NAMES_SIZE;
    std::vector<CString> files;
    if (runModal(dialog) == IDOK) {
        for (POSITION position = dialog.GetStartPosition(); position != nullptr;) {
            files.push_back(dialog.GetNextPathName(position));
        }
    }
    return files;
}

} // namespace

BEGIN_MESSAGE_MAP(CTextureListDlg, CEditorDialog)
ON_BN_CLICKED(IDC_IMPORT_TEXTURE, &CTextureListDlg::onImport)
ON_LBN_SELCHANGE(IDC_TEXTURES, &CTextureListDlg::onTextureChanged)
ON_LBN_DBLCLK(IDC_TEXTURES, &CTextureListDlg::onTextureDoubleClicked)
ON_CBN_SELCHANGE(IDC_TEXTURE_FORMAT, &CTextureListDlg::onFormatChanged)
ON_CBN_SELCHANGE(IDC_TEXTURE_SIZE, &CTextureListDlg::onSizeChanged)
END_MESSAGE_MAP()

CTextureListDlg::CTextureListDlg(qxCScene* scene, qxCTexture* current, CWnd* parent)
    : CEditorDialog(IDD_TEXTURE_LIST, parent, 0, 0, "Advanced >>", "Advanced <<", KEEP_TOGGLE)
    , m_pSelected(current)
    , m_pScene(scene) {}

void CTextureListDlg::abandon() {
    m_pScene = nullptr;
    m_pSelected = nullptr;
    EndDialog(IDCANCEL);
}

void CTextureListDlg::DoDataExchange(CDataExchange* pDX) {
    CEditorDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_TEXTURE_SIZE, m_sizes);
    DDX_Control(pDX, IDC_TEXTURE_FORMAT, m_formats);
    DDX_Control(pDX, IDC_TEXTURE_IMAGE, m_preview);
    DDX_Control(pDX, IDC_TEXTURES, m_textures);
}

BOOL CTextureListDlg::OnInitDialog() {
    const CVisit visit; // opening is no command, but asks the host as much
    CEditorDialog::OnInitDialog();
    if (m_pScene == nullptr) {
        EndDialog(IDCANCEL);
        return TRUE;
    }
    addItems(m_formats, FORMATS);
    addItems(m_sizes, SIZES);
    refreshList();
    UpdateData(FALSE);
    return TRUE;
}

BOOL CTextureListDlg::PreTranslateMessage(MSG* pMsg) {
    // The size list has an edit field too. Where that is no window of its own, its keys come as the list's.
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_RETURN && pMsg->hwnd == m_sizes.GetSafeHwnd()) {
        pMsg->wParam = VK_TAB;
    }
    return CEditorDialog::PreTranslateMessage(pMsg);
}

void CTextureListDlg::refreshList() {
    m_textures.ResetContent();
    m_textures.SetItemData(m_textures.AddString(NO_TEXTURE_CAPTION), 0);
    m_textures.SetCurSel(0);
    for (int i = 0; i < m_pScene->getNumTextures(); ++i) {
        qxCTexture* const texture = m_pScene->getTexture(i);
        if (texture == nullptr) {
            continue; // a scene that counts more than it has
        }
        const int entry = m_textures.AddString(texture->name.getString());
        m_textures.SetItemData(entry, reinterpret_cast<DWORD_PTR>(texture));
        if (texture == m_pSelected) {
            m_textures.SetCurSel(entry);
        }
    }
    showSelection();
}

void CTextureListDlg::showSelection() {
    const bool isTexture = m_pSelected != nullptr;
    if (isTexture) {
        m_previewImage.load(m_pSelected->getFilename(), false);
        selectValue(m_formats, m_pSelected->getPixelFormat());
        selectValue(m_sizes, m_pSelected->getSize());
    }
    m_preview.setImage(isTexture ? &m_previewImage : nullptr, 1, 1);
    m_formats.EnableWindow(isTexture ? TRUE : FALSE);
    m_sizes.EnableWindow(isTexture ? TRUE : FALSE);
    m_preview.Invalidate(FALSE);
    UpdateData(FALSE);
}

/// False when the scene was taken away or nothing is selected.
bool CTextureListDlg::takeSelection() {
    const int entry = m_textures.GetCurSel();
    if (m_pScene == nullptr || entry == LB_ERR) {
        return false;
    }
    m_pSelected = reinterpret_cast<qxCTexture*>(m_textures.GetItemData(entry));
    return true;
}

void CTextureListDlg::onTextureChanged() {
    UpdateData(TRUE);
    if (takeSelection()) {
        showSelection();
    }
}

void CTextureListDlg::onTextureDoubleClicked() {
    if (takeSelection()) {
        EndDialog(IDOK);
    }
}

void CTextureListDlg::onFormatChanged() {
    const std::optional<int> format = chosenValue(m_formats);
    if (m_pSelected != nullptr && format) {
        m_pSelected->setPixelFormat(static_cast<qxImagePixelFormat>(*format));
    }
}

void CTextureListDlg::onSizeChanged() {
    const std::optional<int> size = chosenValue(m_sizes);
    if (m_pSelected != nullptr && size) {
        m_pSelected->setSize(static_cast<qxTextureSize>(*size));
    }
}

void CTextureListDlg::onImport() {
    for (const CString& file : askForFiles()) {
        importFile(file);
    }
}

void CTextureListDlg::importFile(const CString& path) {
    const std::string fileName(withoutDirectory(path.GetString()));
    const std::string name = fileName.substr(0, fileName.find('.'));
    if (countCharacters(name) > NAME_LENGTH_MAX) {
        AfxMessageBox("Name greater than 12 characters (f***ing artists!) ", MB_OK);
        return;
    }
    if (m_pScene == nullptr) {
        return; // taken away while a message or the file dialog stood open
    }
    qxCTexture* const made = m_pScene->createTexture();
    if (made == nullptr) {
        return;
    }
    m_pSelected = made;
    m_pSelected->setFilename(fileName.c_str());
    m_pSelected->name.setString(name.c_str());
    m_pScene->addTexture(m_pSelected);
    refreshList();
    UpdateData(FALSE);
}
