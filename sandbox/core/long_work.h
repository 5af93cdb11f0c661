#pragma once

#include <atomic>

/// Work that takes long, in a thread of its own: how far it is, and whether a person has called it off. May
/// be asked and told by any thread.
class CLongWork {
public:
    void callOff() { m_bCalledOff = true; }
    bool isCalledOff() const { return m_bCalledOff; }
    /// 0 to 1.
    double done() const { return m_fDone; }

    /// A part of the work, which the thread that makes it is at as long as it lives.
    class CPart {
    public:
        /// `share` of the whole, 0 to 1. No work: then nobody is told.
        CPart(CLongWork* work, double share);
        ~CPart();
        CPart(const CPart&) = delete;
        CPart& operator=(const CPart&) = delete;

    private:
        friend class CLongWork;
        CLongWork* m_pWork;
        double m_fShare;
        double m_fReached = 0.0;
        CPart* m_pOuter;
    };

    /// The work that this thread is at, to be handed on to a thread that helps with it; null for none.
    static CLongWork* current();
    /// This thread's part is done to this fraction, 0 to 1. False when it was called off and is to end.
    static bool reach(double fraction);

private:
    void add(double share) { m_fDone.fetch_add(share); }

    std::atomic<double> m_fDone = 0.0;
    std::atomic<bool> m_bCalledOff = false;
};
