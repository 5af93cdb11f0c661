#pragma once

#include "sandbox/journal/film_copy.h"
#include "sandbox/journal/map_records.h"

#include <QString>

#include <deque>
#include <optional>

/// Every change of a map and its film since they were opened, step by step, to be taken back and made again:
/// heights, colours, paint, water, details, definitions, textures of the ground, light, and all of the film.
/// The map keeps what its points were before they change, so a step costs what it touched. Bounded in memory;
/// the oldest step goes whole.
class CMapJournal {
public:
    static constexpr std::size_t STANDARD_BUDGET = std::size_t{512} << 20U;

    /// The map and the film, if there is one, must outlive the journal.
    explicit CMapJournal(CMemoryMap& map, CFilm* film = nullptr, std::size_t budget = STANDARD_BUDGET);

    enum class Details { LOOK, SKIP };
    /// Make what has changed since the last step one of this name; no step when nothing has. What was undone
    /// can then not be made again. Details that are edited in place are looked through for changes only when
    /// told so: that takes as long as there are many.
    bool closeStep(const QString& name, Details details = Details::LOOK);

    bool canUndo() const { return m_nDone > 0; }
    bool canRedo() const { return m_nDone < m_steps.size(); }
    /// Of the step that would be taken back or made again; empty for none.
    QString undoName() const { return canUndo() ? m_steps[m_nDone - 1].name : QString(); }
    QString redoName() const { return canRedo() ? m_steps[m_nDone].name : QString(); }

    /// What an editor must be told of.
    enum class Reach { NOTHING, POINTS, RECORDS, FILM };
    Reach undo();
    Reach redo();
    /// What was taken back cannot be made again.
    void forgetUndone();

    /// The map is on the disk as it is.
    void markSaved() { m_nSaved = m_nDropped + m_nDone; }
    void markUnsaved() { m_nSaved.reset(); }
    bool isAsSaved() const { return m_nSaved == m_nDropped + m_nDone; }
    std::size_t bytes() const { return m_nBytes; }
    /// Hold the steps to so many bytes from now on.
    void setBudget(std::size_t budget);

private:
    struct Step {
        QString name;
        KeptPoints points; ///< as they were before the step; while it is undone, as they were after
        DetailChange details;
        std::optional<MapRecords> before;
        std::optional<MapRecords> after;
        std::optional<FilmCopy> film; ///< as it was before the step; while it is undone, as it was after
        std::size_t bytes = 0;
    };

    static std::size_t bytesOf(const Step& step);
    Reach apply(Step& step, bool forward);
    void takeFilmChange(Step& step);
    void keepWithinBudget();

    CMemoryMap& m_map;
    std::size_t m_nBudget;
    std::deque<Step> m_steps;
    std::size_t m_nDone = 0;    // steps that the map has; the others were undone
    std::size_t m_nDropped = 0; // for good, the oldest
    std::optional<std::size_t> m_nSaved = 0;
    std::size_t m_nBytes = 0;
    MapRecords m_records; // as of the last step
    std::vector<qxCMapDetailRecord> m_details;
    std::uint64_t m_nDetailChanges = 0;
    CFilm* m_pFilm;
    FilmCopy m_film; // as of the last step
    std::uint64_t m_nFilmState = 0;
};
