#include "sandbox/journal/map_journal.h"

#include <utility>

CMapJournal::CMapJournal(CMemoryMap& map, CFilm* film, std::size_t budget)
    : m_map(map), m_nBudget(budget), m_records(recordsOf(map)), m_pFilm(film) {
    if (film != nullptr) {
        m_film = copyOf(*film);
        m_nFilmState = film->contentState();
    }
    map.keepPoints();
    takeChange(m_details, map.getDetails());
    m_nDetailChanges = map.getChangeCount(MapChange::DETAILS);
}

bool CMapJournal::closeStep(const QString& name, Details details) {
    Step step{name, m_map.takeKeptPoints(), {}, {}, {}, {}, 0};
    const std::uint64_t changes = m_map.getChangeCount(MapChange::DETAILS);
    if (std::exchange(m_nDetailChanges, changes) != changes || details == Details::LOOK) {
        step.details = takeChange(m_details, m_map.getDetails());
    }
    MapRecords records = recordsOf(m_map);
    if (!areAlike(records, m_records)) {
        step.after = records;
        step.before = std::exchange(m_records, std::move(records));
    }
    takeFilmChange(step);
    if (step.points.isEmpty() && step.details.isEmpty() && !step.before && !step.film) {
        return false;
    }
    forgetUndone();
    step.bytes = bytesOf(step);
    m_nBytes += step.bytes;
    m_steps.push_back(std::move(step));
    m_nDone = m_steps.size();
    keepWithinBudget();
    return true;
}

void CMapJournal::takeFilmChange(Step& step) {
    if (m_pFilm == nullptr ||
        std::exchange(m_nFilmState, m_pFilm->contentState()) == m_pFilm->contentState()) {
        return;
    }
    FilmCopy film = copyOf(*m_pFilm);
    if (!areAlike(film, m_film)) {
        step.film = std::exchange(m_film, std::move(film));
    }
}

std::size_t CMapJournal::bytesOf(const Step& step) {
    const std::size_t records =
        step.before ? 2 * (sizeof(MapRecords) + step.before->definitions.size() * sizeof(qxCMapMultiTexture) +
                           step.before->terrainTypes.size() * sizeof(_qxMapTerrainDef))
                    : 0;
    return sizeof step + step.points.bytes() + step.details.bytes() + records +
           (step.film ? step.film->bytes() : 0);
}

void CMapJournal::forgetUndone() {
    if (m_nSaved && *m_nSaved > m_nDropped + m_nDone) {
        m_nSaved.reset(); // it cannot be come back to
    }
    while (m_steps.size() > m_nDone) {
        m_nBytes -= m_steps.back().bytes;
        m_steps.pop_back();
    }
}

void CMapJournal::setBudget(std::size_t budget) {
    m_nBudget = budget;
    while (m_nBytes > m_nBudget && canRedo()) { // first what was taken back, the last step of it first
        m_nBytes -= m_steps.back().bytes;
        m_steps.pop_back();
    }
    keepWithinBudget();
}

void CMapJournal::keepWithinBudget() {
    while (m_nBytes > m_nBudget && !m_steps.empty()) {
        m_nBytes -= m_steps.front().bytes;
        m_steps.pop_front();
        --m_nDone;
        if (m_nSaved == m_nDropped++) {
            m_nSaved.reset();
        }
    }
}

CMapJournal::Reach CMapJournal::undo() {
    return canUndo() ? apply(m_steps[--m_nDone], false) : Reach::NOTHING;
}

CMapJournal::Reach CMapJournal::redo() {
    return canRedo() ? apply(m_steps[m_nDone++], true) : Reach::NOTHING;
}

CMapJournal::Reach CMapJournal::apply(Step& step, bool forward) {
    m_map.exchangePoints(step.points);
    if (step.film) {
        putFilm(*step.film, *m_pFilm);
        std::swap(*step.film, m_film);
        m_nFilmState = m_pFilm->contentState();
    }
    if (!step.details.isEmpty()) {
        const auto& from = forward ? step.details.before : step.details.after;
        const auto& to = forward ? step.details.after : step.details.before;
        m_map.replaceDetails(step.details.first, static_cast<int>(from.size()), to);
        const auto begin = m_details.begin() + step.details.first;
        m_details.insert(m_details.erase(begin, begin + static_cast<std::ptrdiff_t>(from.size())), to.begin(),
                         to.end());
        m_nDetailChanges = m_map.getChangeCount(MapChange::DETAILS);
    }
    if (step.before) {
        m_records = forward ? *step.after : *step.before;
        putRecords(m_records, m_map);
        return Reach::RECORDS;
    }
    return step.film ? Reach::FILM : Reach::POINTS;
}
