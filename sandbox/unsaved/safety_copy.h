#pragma once

#include "sandbox/core/long_work.h"
#include "sandbox/project/automatic_copy.h"

#include <cstdint>
#include <functional>
#include <future>
#include <memory>

/// Keeps an automatic copy of a document's unsaved work up to date. A thread of its own writes it, and only
/// the layers that have changed since the copy before. Belongs to the document.
class CSafetyCopy {
public:
    /// What a map and its film are, by counters that change with them.
    struct State {
        std::uint64_t heights = 0;
        std::uint64_t surface = 0;
        std::uint64_t rest = 0;
        friend bool operator==(const State&, const State&) = default;
    };
    using Capture = std::function<Project(const KeptLayers&)>;

    ~CSafetyCopy() { settle(); }

    /// Begin to write what `capture` gives, unless the copy holds that state already or the one before is
    /// still being written. Returns what went wrong with this one or the one before. Throws std::bad_alloc.
    ProjectFault keep(const State& state, const CopyOrigin& origin, const Capture& capture);
    /// Have the thread leave off what it writes.
    void settle();
    /// Go on with a folder that a program left. False when another program was faster.
    bool takeOver(const QString& folder);
    /// Remove the copy: what is in it is saved or given up.
    void drop();
    bool isKept() const { return m_copy.isOwned(); }

private:
    ProjectFault judge();

    CAutomaticCopy m_copy;
    CopyOrigin m_origin;
    State m_state; ///< that the copy holds, or will when it is written
    bool m_bHolds = false;
    std::unique_ptr<CLongWork> m_pWork;  ///< of the thread
    std::future<ProjectFault> m_writing; ///< or written and not yet judged
};
