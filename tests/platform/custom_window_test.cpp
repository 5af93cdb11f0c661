#include "support/recording_dialog.h"

#include <gmock/gmock.h>

#include <QTest>

namespace {

using testing::ElementsAre;

constexpr int CANVAS_ID = 70;

/// A window of a class of its own, with a border, that writes down what it hears.
class CCanvas : public CWnd {
public:
    std::vector<std::string> heard;

    bool create(CWnd& parent, const char* registeredClass) {
        const BOOL made = CreateEx(WS_EX_CLIENTEDGE, registeredClass, "", WS_CHILD | WS_VISIBLE,
                                   CRect(10, 10, 50, 40), &parent, CANVAS_ID);
        return made != FALSE;
    }

protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point) { press("left down", nFlags, point); }
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point) { press("right down", nFlags, point); }
    afx_msg void OnMouseMove(UINT nFlags, CPoint point) { note("move", nFlags, point); }
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point) { release("left up", nFlags, point); }
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point) { release("right up", nFlags, point); }
    DECLARE_MESSAGE_MAP()

private:
    void note(const std::string& what, UINT flags, CPoint point) {
        heard.push_back(what + " " + std::to_string(flags) + " at " + std::to_string(point.x) + ", " +
                        std::to_string(point.y));
    }
    void press(const char* what, UINT flags, CPoint point) {
        SetFocus();
        SetCapture();
        note(what, flags, point);
    }
    void release(const char* what, UINT flags, CPoint point) {
        ::ReleaseCapture();
        note(what, flags, point);
    }
};

BEGIN_MESSAGE_MAP(CCanvas, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

class CustomWindow : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.open({});
        ASSERT_FALSE(m_canvas.create(m_dialog, "Unregistered"));
        ASSERT_TRUE(m_canvas.create(m_dialog, AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW)));
        ASSERT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
    }
    QWidget& widget() const { return m_dialog.at(CANVAS_ID); }

    CRecordingDialog m_dialog;
    CCanvas m_canvas;
};

TEST_F(CustomWindow, KeepsTheCapturedMouseFarOutside) {
    const auto drag = [this](Qt::MouseButton button, Qt::KeyboardModifiers keys) {
        QTest::mousePress(&widget(), button, keys, {5, 6});
        QTest::mouseMove(&widget(), {-98, 500});
        QTest::mouseRelease(&widget(), button, keys, {-98, 500});
    };
    ui::click(widget()); // whatever keys a test before has held
    m_canvas.heard.clear();
    drag(Qt::LeftButton, Qt::NoModifier);
    QTest::mouseMove(&widget(), {7, 8});
    drag(Qt::RightButton, Qt::ControlModifier);
    EXPECT_THAT(m_canvas.heard,
                ElementsAre("left down 1 at 3, 4", "move 1 at -100, 498", "left up 0 at -100, 498",
                            "move 0 at 5, 6", "right down 10 at 3, 4", "move 2 at -100, 498",
                            "right up 8 at -100, 498"));
}

} // namespace
