#include "bench/ratio.h"
#include "engine/memory/movie/memory_movie.h"
#include "movie/movie_undo_store.h"
#include "movie/timeline_layout.h"

#include <QUndoStack>
#include <memory>

namespace {

constexpr int FRAMES = 100'000;
constexpr int KEYFRAMES = 1'000;

std::unique_ptr<CMemoryMovie> makeMovie(int frames, int keyframeEvery, qxMovieFrameMode mode) {
    auto movie = std::make_unique<CMemoryMovie>(nullptr, frames);
    for (int i = 0; i < frames; i += keyframeEvery) {
        qxCMovieFrame& frame = *movie->getFrame(i);
        frame.setKeyframe(true);
        frame.setFrameMode(mode);
        frame.setTranslation({static_cast<float>(i % 77), static_cast<float>(i % 13), 5.0F});
        frame.setRotation({static_cast<float>(i % 31), static_cast<float>(i % 360), 0.0F});
        frame.setEaseOut(0.3F);
        frame.setTargetName(qxCName("mill"));
    }
    movie->updateTweening();
    return movie;
}

/// The fields that tweening writes, with nothing computed.
void writeBare(CMemoryMovie& movie, const qxCMovieFrame& from) {
    for (int i = 0; i < FRAMES; ++i) {
        qxCMovieFrame& frame = *movie.getFrame(i);
        frame.translation = from.translation;
        frame.rotation = from.rotation;
        frame.fov = from.fov;
        frame.shake = from.shake;
        frame.camera = from.camera;
        frame.cameraMode = from.cameraMode;
        frame.fadeMode = from.fadeMode;
        frame.fadeColour = from.fadeColour;
        frame.targetName = from.targetName;
        frame.fadeLevel = from.fadeLevel;
    }
}

void measureTweening() {
    const auto movie = makeMovie(FRAMES, FRAMES / KEYFRAMES, qxMovieFrameSpline);
    const auto bare = makeMovie(FRAMES, FRAMES / KEYFRAMES, qxMovieFrameSpline);
    const qxCMovieFrame from = *bare->getFrame(0);
    float round = 0.0F;
    const auto whole = [&] {
        round += 1.0F;
        for (int key = 0; key < FRAMES; key += FRAMES / KEYFRAMES) {
            movie->getFrame(key)->setFov(round);
        }
        movie->updateTweening();
    };
    const auto one = [&] {
        movie->getFrame(50'000)->setFov(round += 1.0F);
        movie->updateTweening();
    };
    const auto inserted = [&] {
        movie->insertFrame(50, nullptr);
        movie->deleteFrame(50);
        movie->updateTweening();
    };
    const auto seconds = bench::medianSeconds({whole, [&] { writeBare(*bare, from); }, one, inserted}, 41);
    bench::printRatio("updateTweening, 100,000 frames, against writing the same fields", seconds[0],
                      seconds[1], 2.0);
    bench::printRatio("updateTweening after one keyframe changed, against all", seconds[2], seconds[0], 0.02);
    std::printf("updateTweening after frames moved, against writing the same fields: %.3fx\n",
                seconds[3] / seconds[1]);
}

class CChangeCommand : public QUndoCommand {
public:
    explicit CChangeCommand(const qxCMovieFrame& frame) : m_frame(frame) {}
    void undo() override { m_pMovie->getFrame(0)->fov = m_frame.fov; }
    void redo() override {}
    static inline CMemoryMovie* m_pMovie = nullptr;

private:
    qxCMovieFrame m_frame;
};

void measureUndo() {
    CMemoryMovie movie(nullptr);
    CChangeCommand::m_pMovie = &movie;
    const qxCMovieFrame frame = *movie.getFrame(0);
    const auto ours = [&] {
        CMovieUndoStore store;
        for (int i = 0; i < CMovieUndoStore::CAPACITY; ++i) {
            store.push(MovieUndoKind::FRAME_CHANGED, 0, frame);
        }
        while (!store.isEmpty()) {
            movie.getFrame(0)->fov = store.newest().frame.fov;
            store.dropNewest();
        }
    };
    const auto qts = [&] {
        QUndoStack stack;
        for (int i = 0; i < CMovieUndoStore::CAPACITY; ++i) {
            stack.push(new CChangeCommand(frame));
        }
        while (stack.canUndo()) {
            stack.undo();
        }
    };
    const auto seconds = bench::medianSeconds({ours, qts}, 11);
    bench::printRatio("push and undo of 100,000 records against QUndoStack", seconds[0], seconds[1], 1.10);
}

void measureTimeline() {
    const auto movie = makeMovie(10'000, 10, qxMovieFrameLinear);
    std::vector<std::uint32_t> pixels(4096 * 52);
    const auto draw = [&](int columns) {
        return [&movie, &pixels, columns] { drawTimeline(pixels, {columns, 52, 1, 100}, *movie); };
    };
    const auto seconds = bench::medianSeconds({draw(4096), draw(520)}, 201);
    bench::printRatio("timeline picture of 4,096 columns against 520", seconds[0], seconds[1], 11.0);
}

} // namespace

int main() {
    measureTweening();
    measureUndo();
    measureTimeline();
    return 0;
}
