#include "movie/panel/soundtrack_setup.h"

#include "movie/panel/soundtrack_dlg.h"
#include "movie/soundtrack.h"

bool CSoundtrackSetup::run(qxCMovie& movie, CSoundtrack& sounds) {
    CSoundtrackDlg dialog(&movie);
    m_pOpen = &dialog;
    const INT_PTR result = dialog.DoModal();
    m_pOpen = nullptr;
    if (result != IDOK || m_bAbandoned) {
        return false;
    }
    sounds.layOutSoundtrack(movie);
    if (outlastsMovie(movie)) {
        const int answer = AfxMessageBox("Extend movie to length of soundtrack ?", MB_YESNO);
        if (answer == IDYES && !m_bAbandoned) {
            extendToSoundtrack(movie);
        }
    }
    return !m_bAbandoned;
}

void CSoundtrackSetup::abandon() {
    m_bAbandoned = true;
    if (m_pOpen != nullptr) {
        m_pOpen->abandon();
    }
}
