#pragma once

#include "controls/editor_dialog.h"
#include "movie/panel/sound_list_box.h"

#include <map>
#include <string>

class qxCMovie;

/// The modal Soundtrack dialog: the WAV files that the engine finds on the left, on the right those of the
/// movie in playing order, ended by a marker in front of which sounds are added. The movie's soundtrack is
/// replaced by "OK" only, and not laid out.
class CSoundtrackDlg : public CEditorDialog {
public:
    /// `movie` is the engine's. It may hold names that the engine does not find.
    explicit CSoundtrackDlg(qxCMovie* movie, CWnd* parent = nullptr);

    /// End the running dialog with IDCANCEL and touch the movie no more.
    void abandon();

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    afx_msg void onAdd();
    afx_msg void onRemove();
    afx_msg void onMoveUp();
    afx_msg void onMoveDown();

    DECLARE_MESSAGE_MAP()

private:
    const ListedSound& soundNamed(const char* name);
    void listAvailable();
    void listSoundtrack();
    /// The item of the marker, which is the last.
    int endMarker() const { return m_listSoundtrack.GetCount() - 1; }
    void move(int from, int to);

    qxCMovie* m_pMovie;
    CSoundListBox m_listAvailable;
    CSoundListBox m_listSoundtrack;
    std::map<std::string, ListedSound> m_sounds; ///< what the items stand for, by folded name
};
