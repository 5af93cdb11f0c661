#pragma once

/// Whoever waits for everybody to have left.
class CEndOfVisits {
public:
    CEndOfVisits() = default;
    CEndOfVisits(const CEndOfVisits&) = delete;
    CEndOfVisits& operator=(const CEndOfVisits&) = delete;

protected:
    virtual ~CEndOfVisits() = default;
    /// Everybody has left. Called once for each wait.
    virtual void onVisitsOver() = 0;

private:
    friend class CVisit;
    CEndOfVisits* m_pNext = nullptr;
    bool m_bWaiting = false;
};

/// Code of the module is at work on what the host owns: an export, a callback of the engine, a handler of a
/// panel or of one of its dialogs. The host may call back from in there; what it then closes stays whole
/// until the last visit has left.
class CVisit {
public:
    CVisit();
    ~CVisit();
    CVisit(const CVisit&) = delete;
    CVisit& operator=(const CVisit&) = delete;

    /// Tell `waiting` when the last visit has left, which may be now.
    static void whenOver(CEndOfVisits& waiting);

private:
    friend class CModalPause;
    static void tellWaiting();
};

/// A modal window runs messages while this lives. The visits under it are at rest: host code that runs now
/// was called by none of them, may free what they worked on, and must find that let go at once. Who opens a
/// modal window asks afterwards what is left.
class CModalPause {
public:
    CModalPause();
    ~CModalPause();
    CModalPause(const CModalPause&) = delete;
    CModalPause& operator=(const CModalPause&) = delete;

private:
    const int m_nAtRest;
};

/// Run a modal dialog with the visits at rest; its result.
template <class Dialog> auto runModal(Dialog& dialog) {
    const CModalPause pause;
    return dialog.DoModal();
}
