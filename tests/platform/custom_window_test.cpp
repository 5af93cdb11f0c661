#include "platform/recording_dialog.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPixmap>
#include <QTest>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int CANVAS_ID = 70;
constexpr COLORREF RED = RGB(255, 0, 0);
constexpr COLORREF BLUE = RGB(0, 0, 255);

/// A window of a class of its own, with a border, that shows a picture in memory and writes down what it
/// hears.
class CCanvas : public CWnd {
public:
    std::vector<std::string> heard;
    bool turns = true; ///< keeps the wheel to itself

    bool create(CWnd& parent, const char* registeredClass) {
        const BOOL made = CreateEx(WS_EX_CLIENTEDGE, registeredClass, "", WS_CHILD | WS_VISIBLE,
                                   CRect(10, 10, 50, 40), &parent, CANVAS_ID);
        return made != FALSE && draw();
    }

protected:
    afx_msg void OnPaint() {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(client);
        dc.BitBlt(0, 0, client.Width(), client.Height(), &m_memory, 0, 0, SRCCOPY);
    }
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point) { press("left down", nFlags, point); }
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point) { press("right down", nFlags, point); }
    afx_msg void OnMouseMove(UINT nFlags, CPoint point) { note("move", nFlags, point); }
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point) { release("left up", nFlags, point); }
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point) { release("right up", nFlags, point); }
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt) {
        ScreenToClient(&pt);
        note("wheel " + std::to_string(zDelta), nFlags, pt);
        return turns ? TRUE : FALSE;
    }
    afx_msg void OnKeyDown(UINT nChar, UINT, UINT) { heard.push_back("key " + std::to_string(nChar)); }
    DECLARE_MESSAGE_MAP()

private:
    bool draw() {
        CClientDC dc(this);
        CRect client;
        GetClientRect(client);
        if (m_memory.CreateCompatibleDC(&dc) == FALSE ||
            m_bitmap.CreateCompatibleBitmap(&dc, client.Width(), client.Height()) == FALSE) {
            return false;
        }
        m_memory.SelectObject(&m_bitmap);
        m_memory.FillSolidRect(client, RED);
        return m_memory.SetPixelV(0, 0, BLUE) != FALSE;
    }
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

    CDC m_memory;
    CBitmap m_bitmap;
};

BEGIN_MESSAGE_MAP(CCanvas, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

class CustomWindow : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dialog.CreateIndirect(dialogLayout({})));
        ASSERT_FALSE(m_canvas.create(m_dialog, "Unregistered"));
        ASSERT_TRUE(m_canvas.create(m_dialog, AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW)));
        ASSERT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
    }
    QWidget& widget() const { return m_dialog.at(CANVAS_ID); }

    CRecordingDialog m_dialog;
    CCanvas m_canvas;
};

TEST_F(CustomWindow, ShowsItsPictureInsideItsBorderAndItsTip) {
    CRect client;
    m_canvas.GetClientRect(client);
    EXPECT_EQ(widget().geometry(), QRect(10, 10, 40, 30));
    EXPECT_EQ(client.Width(), 36);
    const QImage image = widget().grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), QColor(0, 0, 255));
    EXPECT_EQ(image.pixelColor(37, 27), QColor(255, 0, 0));
    EXPECT_NE(image.pixelColor(0, 15), QColor(255, 0, 0));
    CToolTipCtrl tips;
    ASSERT_TRUE(tips.Create(&m_dialog) && tips.AddTool(&m_canvas, "Frames"));
    EXPECT_EQ(widget().toolTip(), "Frames");
}

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

TEST_F(CustomWindow, HearsTheWheelAndTheKeys) {
    ui::turnWheel(widget(), -2);
    EXPECT_THAT(m_canvas.heard, ElementsAre("wheel -240 0 at 17, 12"));
    m_canvas.heard.clear();
    ui::click(widget());
    m_canvas.heard.clear();
    ui::press(Qt::Key_Delete);
    EXPECT_THAT(m_canvas.heard, ElementsAre("key 46"));
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
}

} // namespace
