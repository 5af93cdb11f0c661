#include "movie/panel/soundtrack_dlg.h"

#include "engine/qx_file.h"
#include "engine/qx_letter_case.h"
#include "engine/qx_movie.h"
#include "module/visit.h"
#include "movie/soundtrack_file.h"
#include "resources/resource_ids.h"

#include <ranges>

namespace {

constexpr int KEEP_TOGGLE = 1;
constexpr const char* END_MARKER = "<END>";

} // namespace

BEGIN_MESSAGE_MAP(CSoundtrackDlg, CEditorDialog)
ON_BN_CLICKED(IDC_ADD_SOUNDS, &CSoundtrackDlg::onAdd)
ON_BN_CLICKED(IDC_REMOVE_SOUNDS, &CSoundtrackDlg::onRemove)
ON_BN_CLICKED(IDC_MOVE_SOUND_UP, &CSoundtrackDlg::onMoveUp)
ON_BN_CLICKED(IDC_MOVE_SOUND_DOWN, &CSoundtrackDlg::onMoveDown)
ON_LBN_DBLCLK(IDC_AVAILABLE_SOUNDS, &CSoundtrackDlg::onAdd)
ON_LBN_DBLCLK(IDC_SOUNDTRACK, &CSoundtrackDlg::onRemove)
END_MESSAGE_MAP()

CSoundtrackDlg::CSoundtrackDlg(qxCMovie* movie, CWnd* parent)
    : CEditorDialog(IDD_SOUNDTRACK, parent, 0, 0, "Advanced >>", "Advanced <<", KEEP_TOGGLE)
    , m_pMovie(movie) {}

void CSoundtrackDlg::abandon() {
    m_pMovie = nullptr;
    EndDialog(IDCANCEL);
}

void CSoundtrackDlg::DoDataExchange(CDataExchange* pDX) {
    CEditorDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_AVAILABLE_SOUNDS, m_listAvailable);
    DDX_Control(pDX, IDC_SOUNDTRACK, m_listSoundtrack);
}

BOOL CSoundtrackDlg::OnInitDialog() {
    const CVisit visit; // opening is no command, but asks the host as much
    CEditorDialog::OnInitDialog();
    listAvailable();
    listSoundtrack();
    UpdateData(FALSE);
    return TRUE;
}

const ListedSound& CSoundtrackDlg::soundNamed(const char* name) {
    const auto [place, isNew] = m_sounds.try_emplace(foldCase(std::string_view(name)));
    if (isNew) {
        place->second = {name, whySilent(name)};
    }
    return place->second;
}

void CSoundtrackDlg::listAvailable() {
    for (const char* name = qxCFile::findFirst("*.wav"); name != nullptr; name = qxCFile::findNext()) {
        if (m_listAvailable.FindString(-1, name) == LB_ERR) {
            m_listAvailable.add(soundNamed(name));
        }
    }
}

void CSoundtrackDlg::listSoundtrack() {
    const int count = m_pMovie != nullptr ? m_pMovie->getSoundtrackSize() : 0;
    for (int i = 0; i < count; ++i) {
        if (const qxCMovieSound* const entry = m_pMovie->getSound(i)) {
            m_listSoundtrack.add(soundNamed(entry->name));
        }
    }
    m_listSoundtrack.AddString(END_MARKER);
}

void CSoundtrackDlg::onAdd() {
    const std::vector<int> chosen = m_listAvailable.selection();
    if (chosen.empty()) {
        return;
    }
    const int first = m_listSoundtrack.GetCaretIndex();
    int place = first;
    for (const int item : chosen) {
        m_listSoundtrack.insert(place++, *m_listAvailable.soundAt(item));
    }
    m_listAvailable.selectOnly(0, 0);
    m_listSoundtrack.selectOnly(first, static_cast<int>(chosen.size()));
}

void CSoundtrackDlg::onRemove() {
    const std::vector<int> chosen = m_listSoundtrack.selection();
    if (chosen.empty()) {
        return;
    }
    for (const int item : chosen | std::views::reverse) {
        if (item < endMarker()) {
            m_listSoundtrack.DeleteString(static_cast<UINT>(item));
        }
    }
    m_listSoundtrack.selectOnly(0, 0);
}

void CSoundtrackDlg::onMoveUp() {
    const int item = m_listSoundtrack.GetCaretIndex();
    if (item > 0 && item != endMarker()) {
        move(item, item - 1);
    }
}

void CSoundtrackDlg::onMoveDown() {
    const int item = m_listSoundtrack.GetCaretIndex();
    if (item >= 0 && item + 1 < endMarker()) {
        move(item, item + 1);
    }
}

void CSoundtrackDlg::move(int from, int to) {
    const ListedSound& sound = *m_listSoundtrack.soundAt(from);
    m_listSoundtrack.DeleteString(static_cast<UINT>(from));
    m_listSoundtrack.insert(to, sound);
    m_listSoundtrack.selectOnly(to, 1);
}

void CSoundtrackDlg::OnOK() {
    if (m_pMovie != nullptr) {
        m_pMovie->clearSoundtrack();
        for (int i = 0; i < endMarker(); ++i) {
            m_pMovie->addSound(m_listSoundtrack.soundAt(i)->name.c_str());
        }
    }
    CEditorDialog::OnOK();
}
