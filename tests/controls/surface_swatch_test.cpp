#include "controls/colour_button.h"
#include "controls/surface_fixture.h"
#include "support/modal_steps.h"

#include <gmock/gmock.h>

#include <QColorDialog>
#include <QTest>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr qxCColour RED{200, 10, 20, 255};
constexpr qxCColour GREEN{0, 180, 30, 255};
constexpr qxCColour BLACK{0, 0, 0, 255};

/// How often a widget was painted.
class CPaintCount : public QObject {
public:
    explicit CPaintCount(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// Two panels with swatches: 0 and 1 in the first, 2 in the second.
class SwatchTest : public testing::Test {
protected:
    SwatchTest() {
        m_pSwatches[0]->setColour(RED);
        m_pSwatches[1]->setColour(GREEN);
    }

    ~SwatchTest() override { drop(m_first.button(0), m_first.button(0)); } // forgets what was dragged

    QWidget* widget(int swatch) { return swatch < 2 ? m_first.button(swatch) : m_second.button(swatch - 2); }

    static void press(QWidget* on) { QTest::mousePress(on, Qt::LeftButton); }

    /// Let the button go over `over`, `below` pixels under its middle. The toolkit keeps the mouse with the
    /// widget that was pressed: the release comes there, wherever the pointer is.
    static void release(QWidget* pressed, QWidget* over, int below = 0) {
        const QPoint at = over->mapToGlobal(over->rect().center()) + QPoint(0, below);
        QTest::mouseRelease(pressed, Qt::LeftButton, Qt::NoModifier, pressed->mapFromGlobal(at));
    }

    static void drop(QWidget* from, QWidget* to) {
        press(from);
        release(from, to);
    }

    std::unique_ptr<CColourButton> m_pSwatches[3] = {std::make_unique<CColourButton>(),
                                                     std::make_unique<CColourButton>(),
                                                     std::make_unique<CColourButton>()};
    CSurfaceDialog m_first{{m_pSwatches[0].get(), m_pSwatches[1].get()}, 50, 50};
    CSurfaceDialog m_second{{m_pSwatches[2].get()}, 50, 300};
};

TEST_F(SwatchTest, ShowsItsColourInABlackFrame) {
    m_pSwatches[0]->setColour(qxCColour(12, 200, 99, 0));
    EXPECT_EQ(m_pSwatches[0]->getColour(), qxCColour(12, 200, 99, 255));
    const QImage picture = pictureOf(widget(0));
    const int last = picture.width() - 1;
    for (const auto& [x, y] : {std::pair(0, 3), {3, 0}, {last, 3}, {3, picture.height() - 1}}) {
        EXPECT_EQ(picture.pixelColor(x, y), QColor(0, 0, 0)) << x << ", " << y;
    }
    EXPECT_EQ(picture.pixelColor(1, 1), QColor(12, 200, 99));
    EXPECT_EQ(picture.pixelColor(last - 1, picture.height() - 2), QColor(12, 200, 99));
}

TEST_F(SwatchTest, ADragCopiesTheColour) {
    pictureOf(widget(1));
    CPaintCount paints(*widget(1));
    drop(widget(0), widget(1));
    EXPECT_EQ(paints.count, 1) << "repainted at once";
    EXPECT_EQ(m_pSwatches[1]->getColour(), RED);
    EXPECT_EQ(m_pSwatches[0]->getColour(), RED);
    EXPECT_THAT(m_first.m_changed, ElementsAre(1));
    EXPECT_EQ(widget(1)->grab().toImage().pixelColor(5, 5), QColor(200, 10, 20));
}

TEST_F(SwatchTest, ADragThatMissedIsRemembered) {
    press(widget(0));
    release(widget(0), widget(0), 100);
    m_pSwatches[0]->setColour(BLACK);
    release(widget(1), widget(1));
    EXPECT_EQ(m_pSwatches[1]->getColour(), RED) << "the colour as it was at the press";
    EXPECT_THAT(m_first.m_changed, ElementsAre(1));

    release(widget(2), widget(2));
    EXPECT_EQ(m_pSwatches[2]->getColour(), BLACK) << "the first drop ended the drag";
}

TEST_F(SwatchTest, ASwatchThatIsGoneIsNoSource) {
    press(widget(2));
    m_second.DestroyWindow();
    m_pSwatches[2].reset();
    release(widget(1), widget(1));
    EXPECT_EQ(m_pSwatches[1]->getColour(), GREEN);
    EXPECT_THAT(m_first.m_changed, IsEmpty());
}

TEST_F(SwatchTest, ADoubleClickAsksForAColour) {
    const auto answer = [&](bool isAccepted) {
        CModalSteps steps({[&](QWidget* shown) {
            auto* const dialog = qobject_cast<QColorDialog*>(shown);
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->currentColor(), QColor(200, 10, 20));
            dialog->setCurrentColor(QColor(1, 2, 3));
            isAccepted ? dialog->accept() : dialog->reject();
        }});
        QTest::mouseDClick(widget(0), Qt::LeftButton);
        EXPECT_TRUE(steps.areDone());
    };
    answer(false);
    EXPECT_EQ(m_pSwatches[0]->getColour(), RED);
    EXPECT_THAT(m_first.m_changed, IsEmpty());

    answer(true);
    EXPECT_EQ(m_pSwatches[0]->getColour(), qxCColour(1, 2, 3, 255));
    EXPECT_THAT(m_first.m_changed, ElementsAre(0));
    EXPECT_EQ(widget(0)->grab().toImage().pixelColor(5, 5), QColor(1, 2, 3));
}

} // namespace
