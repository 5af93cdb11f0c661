#include "bench/ratio.h"
#include "engine/memory/movie/memory_movie.h"
#include "movie/movie_undo_store.h"
#include "movie/timeline_layout.h"

#include <QImage>
#include <QPainter>
#include <QUndoStack>
#include <array>
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

/// One fillRect, or the waiting run of rectangles that it would go on with.
class CRectangles {
public:
    CRectangles(QPainter& painter, bool mergeRuns) : m_painter(painter), m_bMerge(mergeRuns) {}

    void fill(int row, const QRect& rect, QRgb colour) {
        Run& run = m_runs[static_cast<std::size_t>(row)];
        if (m_bMerge && run.colour == colour && run.rect.right() + 1 == rect.left() &&
            run.rect.top() == rect.top() && run.rect.bottom() == rect.bottom()) {
            run.rect.setRight(rect.right());
            return;
        }
        flush(run);
        run = {rect, colour};
        if (!m_bMerge) {
            flush(run);
        }
    }
    void flush() {
        for (Run& run : m_runs) {
            flush(run);
        }
    }

private:
    struct Run {
        QRect rect;
        QRgb colour = 0;
    };
    void flush(Run& run) {
        if (run.colour != 0) {
            m_painter.fillRect(run.rect, QColor(run.colour));
        }
        run = {};
    }

    QPainter& m_painter;
    bool m_bMerge;
    std::array<Run, 5> m_runs;
};

/// The timeline as a painter draws it, a rectangle for each mark of each column.
void paintPlainly(QImage& image, qxCMovie& movie, int firstFrame, bool mergeRuns) {
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::black);
    CRectangles rectangles(painter, mergeRuns);
    const int h = image.height();
    for (int x = 0; x < image.width(); ++x) {
        const int index = firstFrame + x;
        const qxCMovieFrame& frame = *movie.getFrame(index);
        const QRgb background = movie.isInRange(index) ? 0xFF800000
                                : index % 2 != 0       ? 0xFF181818
                                                       : 0xFF101010;
        const auto mark = [&](int band, QRgb colour) {
            const int top = (3 * band - 2) * h / 13;
            rectangles.fill(band, QRect(x, top, 1, 3 * band * h / 13 - top), colour);
        };
        rectangles.fill(0, QRect(x, 0, 1, h), background);
        if (mergeRuns) {
            continue; // a column of one pixel has no inner part, which is found out without a rectangle
        }
        mark(1, frame.keyframe ? 0xFFC0C0C0 : 0xFF404040);
        mark(2, 0xFF404040);
        mark(3, movie.getSoundAtFrame(index) < 0 ? background : 0xFF00C000);
        mark(4, frame.animTrigger[0] != 0 ? 0xFFC0C0C0 : 0xFF404040);
    }
    rectangles.flush();
}

void measureTimeline() {
    const auto movie = makeMovie(10'000, 10, qxMovieFrameLinear);
    std::vector<std::uint32_t> pixels(4096 * 52);
    std::vector<TimelineColumn> columns;
    const auto draw = [&](int width) {
        return [&movie, &pixels, &columns, width] {
            const TimelineView view{width, 52, 1, 100};
            readTimeline(columns, view, *movie);
            drawTimeline(pixels, view, columns);
        };
    };
    QImage image(520, 52, QImage::Format_RGB32);
    const auto paint = [&](bool mergeRuns) {
        return [&movie, &image, mergeRuns] { paintPlainly(image, *movie, 100, mergeRuns); };
    };
    const auto seconds = bench::medianSeconds({draw(4096), draw(520), paint(false), paint(true)}, 201);
    bench::printRatio("timeline picture of 520 columns against one fillRect a mark and column", seconds[1],
                      seconds[2], 0.025);
    bench::printRatio("timeline picture of 520 columns against the same with runs merged", seconds[1],
                      seconds[3], 0.27);
    bench::printRatio("timeline picture of 4,096 columns against 520", seconds[0], seconds[1], 11.0);
}

} // namespace

int main() {
    measureTweening();
    measureUndo();
    measureTimeline();
    return 0;
}
