#pragma once

class CSoundtrack;
class CSoundtrackDlg;
class qxCMovie;

/// "Setup Sound List": lets a person arrange the movie's soundtrack, lays it out, and offers to let the movie
/// grow to its length. Belongs to a panel.
class CSoundtrackSetup {
public:
    /// Run the dialog. True when the soundtrack was replaced, and the movie may have grown; false when
    /// nothing changed, and when the movie was let go meanwhile.
    bool run(qxCMovie& movie, CSoundtrack& sounds);
    /// End the dialog, if it runs, and touch the movie no more.
    void abandon();

private:
    CSoundtrackDlg* m_pOpen = nullptr;
    bool m_bAbandoned = false;
};
