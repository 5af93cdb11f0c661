#include "movie/movie_reference.h"

#include "resources/resource_ids.h"
#include "support/frame_values.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

float& numberOf(qxCMovieFrame& f, int field) {
    float* const numbers[] = {&f.translation.x, &f.translation.y, &f.translation.z, &f.rotation.x,
                              &f.rotation.y,    &f.rotation.z,    &f.fov,           &f.shake};
    return *numbers[field];
}

void setNumber(qxCMovieFrame& frame, int field, float value) {
    qxCMovieFrame changed = frame;
    numberOf(changed, field) = value;
    frame.setTranslation(changed.translation);
    frame.setRotation(changed.rotation);
    frame.setFov(changed.fov);
    frame.setShake(changed.shake);
}

std::string sixDigits(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", static_cast<double>(value));
    return text;
}

std::string numbersOf(const qxCMovieFrame& frame) {
    std::string text;
    for (int field = 0; field < 8; ++field) {
        qxCMovieFrame copy = frame;
        text += sixDigits(numberOf(copy, field)) + " ";
    }
    return text + sixDigits(frame.easeIn) + " " + sixDigits(frame.easeOut) + " " + frame.animTrigger +
           (frame.keyframe ? " key" : "");
}

std::string timeOf(int frame) {
    const int tenths = (frame * 10 + 12) / 25; // 25 frames a second
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d.%d0", tenths / 600, tenths / 10 % 60, tenths % 10);
    return text;
}

std::string framesAndRange(const CMemoryMovie& movie) {
    return std::to_string(movie.getNumFrames()) + " with " + std::to_string(movie.getRangeStart()) + "-" +
           std::to_string(movie.getRangeEnd());
}

} // namespace

void CReferenceMovieEditor::open(CMemoryMovie& movie) {
    if (m_pMovie != &movie) {
        m_history.clear();
    }
    m_moves.clear();
    m_pMovie = &movie;
    movie.setRangeSingleFrame(0);
    zoom(IDC_ZOOM_FIT);
}

/// Scroll so that the frame is among the whole columns.
void CReferenceMovieEditor::show(int frame) {
    m_bOutdated = false;
    const int whole = WIDTH / m_nWidth;
    m_nFirst = std::max(std::min(m_nFirst, frame), frame - whole + 1);
}

void CReferenceMovieEditor::zoom(int button) {
    m_bOutdated = false;
    int asked = button == IDC_ZOOM_IN ? m_nWidth * 2 : m_nWidth / 2;
    if (button == IDC_ZOOM_FIT) {
        asked = WIDTH / m_pMovie->getNumFrames();
    }
    m_nWidth = 1;
    while (m_nWidth * 2 <= std::min(asked, 64)) {
        m_nWidth *= 2;
    }
    if (button == IDC_ZOOM_FIT) {
        m_nFirst = 0;
        show(m_pMovie->getRangeStart());
    }
}

void CReferenceMovieEditor::step(int button) {
    const int start = m_pMovie->getRangeStart();
    const int last = m_pMovie->getNumFrames() - 1;
    int to = button == IDC_GO_TO_START ? 0 : button == IDC_GO_TO_END ? last : start;
    if (button == IDC_STEP_BACK || button == IDC_STEP_FORWARD) {
        to += button == IDC_STEP_FORWARD ? 1 : -1;
    } else if (button == IDC_PREVIOUS_KEY || button == IDC_NEXT_KEY) {
        const int by = button == IDC_NEXT_KEY ? 1 : -1;
        do {
            to += by;
        } while (to >= 0 && to <= last && !m_pMovie->getFrame(to)->keyframe);
        if (to < 0 || to > last) {
            return;
        }
    }
    m_pMovie->setRangeSingleFrame(to);
    show(m_pMovie->getRangeStart());
}

void CReferenceMovieEditor::settle() {
    for (const Move& move : m_moves) {
        if (move.changed) {
            m_history.push_back({'c', move.index, move.before});
        }
    }
    m_moves.clear();
}

void CReferenceMovieEditor::tweenAndShow() {
    m_pMovie->updateTweening();
    m_bOutdated = false;
}

template <class Edit> void CReferenceMovieEditor::change(bool recorded, Edit edit) {
    settle();
    const qxCMovieFrame before = current();
    edit(current());
    if (recorded && current().keyframe && valuesOf(before) != valuesOf(current())) {
        m_history.push_back({'c', m_pMovie->getRangeStart(), before});
    }
}

void CReferenceMovieEditor::command(int button) {
    settle();
    const int start = m_pMovie->getRangeStart();
    const int end = m_pMovie->getRangeEnd();
    const int count = m_pMovie->getNumFrames();
    if (button == IDC_INSERT_FRAME) {
        m_pMovie->insertFrame(start, nullptr);
        m_history.push_back({'i', start, {}});
    } else if (button == IDC_ADD_KEYFRAME) {
        m_pMovie->insertFrame(count, new qxCMovieFrame(*m_pMovie->getFrame(count - 1)));
        m_history.push_back({'i', count, {}});
        m_pMovie->setRangeSingleFrame(count);
        show(count);
    } else if (button == IDC_DELETE_FRAMES) {
        for (int i = end; i >= start; --i) {
            if (i != start || start > 0 || end < count - 1) { // of all frames the first one stays
                m_history.push_back({'d', i, *m_pMovie->getFrame(i)});
            }
        }
        m_pMovie->deleteRange();
    } else if (button == IDC_COPY_FRAMES) {
        m_pMovie->copy();
    } else if (button == IDC_CUT_FRAMES) {
        m_pMovie->cut();
    } else if (button == IDC_PASTE_FRAMES) {
        m_pMovie->paste(start);
    } else {
        for (int i = start; i <= end; ++i) {
            m_pMovie->getFrame(i)->setKeyframe(button == IDC_MARK_KEYFRAME);
        }
    }
    if (button != IDC_INSERT_FRAME && button != IDC_MARK_KEYFRAME && button != IDC_UNMARK_KEYFRAME) {
        m_pMovie->setRangeEnd(m_pMovie->getRangeStart());
    }
    tweenAndShow();
}

void CReferenceMovieEditor::undo() {
    settle();
    if (!m_history.empty()) {
        const Record record = m_history.back();
        m_history.pop_back();
        if (record.kind == 'i') {
            m_pMovie->deleteFrame(record.index);
        } else if (record.kind == 'd') {
            m_pMovie->insertFrame(record.index, new qxCMovieFrame(record.frame));
        } else if (qxCMovieFrame* const frame = m_pMovie->getFrame(record.index)) {
            *frame = record.frame;
        }
    }
    tweenAndShow();
}

void CReferenceMovieEditor::drag(bool rightButton, bool ctrl, int from, int to, bool cancelled) {
    const int start = m_pMovie->getRangeStart();
    const int end = m_pMovie->getRangeEnd();
    const int anchor = frameAt(from);
    const int last = m_pMovie->getNumFrames() - 1;
    const auto select = [&](int other) {
        m_pMovie->setRangeStart(std::min(anchor, other));
        m_pMovie->setRangeEnd(std::max(anchor, other));
    };
    m_pMovie->setRangeSingleFrame(anchor);
    if (!rightButton) {
        const int reached = frameAt(to);
        select(reached);
        show(reached < anchor ? m_pMovie->getRangeStart() : m_pMovie->getRangeEnd());
    } else if (!ctrl) {
        m_pMovie->setRangeSingleFrame(frameAt(to));
        show(m_pMovie->getRangeStart());
    }
    if (cancelled) {
        m_bOutdated = false;
        m_pMovie->setRangeStart(start);
        m_pMovie->setRangeEnd(end);
        return;
    }
    m_bOutdated = false;
    const int drop = frameAt(to);
    if (!rightButton) {
        select(drop);
        return;
    }
    settle();
    if (ctrl) {
        m_pMovie->duplicateFrame(anchor, drop);
    } else if (anchor >= 1 && anchor < last) {
        m_pMovie->swapFrames(anchor, drop);
    } else if (anchor == last && drop > last) {
        for (int i = last; i < drop; ++i) {
            m_pMovie->insertFrame(i, nullptr);
        }
        tweenAndShow();
    }
    m_pMovie->setRangeSingleFrame(drop);
}

void CReferenceMovieEditor::typeNumber(int field, std::optional<float> value) {
    if (m_bOutdated || !value || sixDigits(*value) == sixDigits(numberOf(current(), field))) {
        return;
    }
    change(true, [&](qxCMovieFrame& frame) { setNumber(frame, field, *value); });
}

void CReferenceMovieEditor::spin(int field, bool up) {
    const double step = field < 3 || field == 7 ? 0.1F : 1.0F;
    change(true, [&](qxCMovieFrame& frame) {
        const double asked = numberOf(frame, field) + (up ? step : -step);
        const double steps = std::floor(std::abs(asked) / step + 0.5);
        setNumber(frame, field,
                  static_cast<float>(asked < 0.0 && steps > 0.0 ? -steps * step : steps * step));
    });
    tweenAndShow();
}

void CReferenceMovieEditor::ease(int way) {
    const float by = way % 2 == 0 ? -0.1F : 0.1F;
    change(false, [&](qxCMovieFrame& frame) {
        const float value = std::clamp((way < 2 ? frame.easeIn : frame.easeOut) + by, 0.0F, 1.0F);
        way < 2 ? frame.setEaseIn(value) : frame.setEaseOut(value);
    });
    tweenAndShow();
}

void CReferenceMovieEditor::setAnim(const std::string& name) {
    if (!m_bOutdated && name != current().animTrigger) {
        change(true, [&](qxCMovieFrame& frame) { frame.setAnimTrigger(name.c_str()); });
    }
    tweenAndShow();
}

void CReferenceMovieEditor::toggleTarget() {
    change(true, [](qxCMovieFrame& frame) {
        frame.setCameraMode(frame.cameraMode == qxMovieCameraFree ? qxMovieCameraTarget : qxMovieCameraFree);
    });
    tweenAndShow();
}

void CReferenceMovieEditor::choose(int list, int item) {
    const int values[] = {current().camera, current().frameMode, current().fadeMode};
    if (values[list] == item) {
        return; // nothing is chosen anew
    }
    change(list != 0, [&](qxCMovieFrame& frame) {
        if (list == 0) {
            frame.setCamera(item);
        } else if (list == 1) {
            frame.setFrameMode(static_cast<qxMovieFrameMode>(item));
        } else {
            frame.setFadeMode(static_cast<qxMovieFadeMode>(item));
        }
    });
    tweenAndShow();
}

void CReferenceMovieEditor::cameraAltered(int camera, bool finished) {
    if (finished) {
        settle();
        tweenAndShow();
        return;
    }
    qxCMovieFrame& frame = current();
    if (frame.camera != camera) {
        return;
    }
    const int index = m_pMovie->getRangeStart();
    auto move = std::ranges::find(m_moves, index, &Move::index);
    if (move == m_moves.end()) {
        move = m_moves.insert(move, {index, frame});
    }
    const auto before = valuesOf(frame);
    qxCCamera& node = *m_pMovie->getChildCamera(camera);
    frame.setTranslation(node.position);
    if (frame.cameraMode == qxMovieCameraTarget) {
        qxCVector3d angles = frame.rotation;
        m_pMovie->getTargetDirection(&frame, frame.translation).toAngles(angles.x, angles.y);
        frame.setRotation(angles);
        node.rotation = angles;
    } else {
        frame.setRotation(node.rotation);
    }
    frame.setFov(node.getFieldOfView());
    frame.setKeyframe(true);
    move->changed = move->changed || before != valuesOf(frame);
    m_bOutdated = true;
}

void CReferenceMovieEditor::play(int frames, bool loops) {
    const int count = m_pMovie->getNumFrames();
    int reached = (m_pMovie->getRangeStart() == count - 1 ? 0 : m_pMovie->getRangeStart()) + frames;
    if (reached >= count) {
        show(count - 1);
        reached = loops ? reached % count : count - 1;
    }
    m_pMovie->setRangeSingleFrame(reached);
    show(reached);
}

bool CReferenceMovieEditor::setUpSounds(bool removes, int added, bool extends) {
    constexpr float SECONDS[] = {0.0F, 1.5F, 0.25F};
    std::vector<std::string> names;
    for (int i = 0; !removes && i < m_pMovie->getSoundtrackSize(); ++i) {
        names.emplace_back(m_pMovie->getSound(i)->name);
    }
    if (added != 0) {
        names.insert(names.begin(), added == 1 ? "long.wav" : "short.wav");
    }
    m_pMovie->clearSoundtrack();
    int begin = 0; // in frames of 1/25 s, each after the end of the one before
    float end = 0.0F;
    for (const std::string& name : names) {
        m_pMovie->addSound(name.c_str());
        const float length = SECONDS[name == "long.wav" ? 1 : 2];
        qxCMovieSound& sound = *m_pMovie->getSound(m_pMovie->getSoundtrackSize() - 1);
        sound.start = static_cast<float>(begin) / 25.0F;
        sound.length = length;
        end = sound.start + length;
        begin += static_cast<int>(length * 25.0F) + 1;
    }
    const int needed = static_cast<int>(std::ceil(static_cast<double>(end) * 25.0 - 1e-3));
    const bool asks = needed > m_pMovie->getNumFrames();
    if (asks && extends) {
        while (m_pMovie->getNumFrames() < needed) {
            m_pMovie->insertFrame(m_pMovie->getNumFrames(), nullptr);
        }
        m_pMovie->getFrame(needed - 1)->setKeyframe(true);
        m_pMovie->updateTweening();
    }
    m_bOutdated = false;
    return asks;
}

std::string CReferenceMovieEditor::compare(CMemoryMovie& other, int historyCount) {
    for (int i = 0; i < std::max(other.getSoundtrackSize(), m_pMovie->getSoundtrackSize()); ++i) {
        const qxCMovieSound* const one = m_pMovie->getSound(i);
        const qxCMovieSound* const theirs = other.getSound(i);
        if (one == nullptr || theirs == nullptr || std::string(one->name) != theirs->name ||
            one->start != theirs->start || one->length != theirs->length) {
            return "sound " + std::to_string(i);
        }
    }
    if (historyCount != static_cast<int>(m_history.size())) {
        return "the history holds " + std::to_string(historyCount) + ", not " +
               std::to_string(m_history.size());
    }
    if (other.getNumFrames() != m_pMovie->getNumFrames() ||
        other.getRangeStart() != m_pMovie->getRangeStart() ||
        other.getRangeEnd() != m_pMovie->getRangeEnd() || other.flags != std::uint32_t{qxMovieStopped}) {
        return "frames or range: " + framesAndRange(other) + ", not " + framesAndRange(*m_pMovie);
    }
    for (int i = 0; i < other.getNumFrames(); ++i) {
        if (valuesOf(*other.getFrame(i)) != valuesOf(*m_pMovie->getFrame(i))) {
            return "frame " + std::to_string(i) + ": " + numbersOf(*other.getFrame(i)) + ", not " +
                   numbersOf(*m_pMovie->getFrame(i));
        }
    }
    return {};
}

CReferenceMovieEditor::Shown CReferenceMovieEditor::shown() {
    Shown shown;
    for (int field = 0; field < 8 && !m_bOutdated; ++field) {
        shown.numbers.push_back(sixDigits(numberOf(current(), field)));
    }
    const int start = m_pMovie->getRangeStart();
    const int end = m_pMovie->getRangeEnd();
    shown.time = start == end ? timeOf(start) : timeOf(start) + "-" + timeOf(end);
    shown.editable = m_bOutdated ? std::nullopt : std::optional(current().keyframe && start == end);
    return shown;
}
