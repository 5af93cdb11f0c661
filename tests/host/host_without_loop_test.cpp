#include "host/veskutil.h"

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

namespace {

/// Counts what the window painted.
class CPaintCounter : public QObject {
public:
    explicit CPaintCounter(QWidget* window) { window->installEventFilter(this); }
    int count() const { return m_nCount; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        m_nCount += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_nCount = 0;
};

/// A host that never heard of the panels' toolkit: this program makes no application object and runs no loop.
class HostWithoutLoop : public testing::Test {
protected:
    static QWidget* open(qxCMap& map) {
        vuCreateEditor(nullptr, &map, "textures", nullptr, true, nullptr);
        return ui::dialog(IDD_MAP_EDITOR);
    }
    static void postClick(QWidget& widget) {
        const QPointF middle = widget.rect().center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const auto pressed = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QCoreApplication::postEvent(&widget, new QMouseEvent(type, middle, widget.mapToGlobal(middle),
                                                                 Qt::LeftButton, pressed, Qt::NoModifier));
        }
    }

    CMemoryScene m_scene;
    CMemoryMap m_map{16, &m_scene};
};

} // namespace

TEST_F(HostWithoutLoop, GivesThePanelItsEventsOnceAFrame) {
    QWidget* const panel = open(m_map);
    ASSERT_NE(panel, nullptr);
    const CPaintCounter paints(panel);
    vuSoundUpdate();
    EXPECT_GT(paints.count(), 0);
    postClick(ui::control(*panel, IDC_CLOSE));
    EXPECT_TRUE(vuIsEditorActive());
    vuSoundUpdate();
    EXPECT_FALSE(vuIsEditorActive());
    vuSoundUpdate();
    EXPECT_EQ(ui::dialog(IDD_MAP_EDITOR), nullptr) << "the closed window is gone";
}

TEST_F(HostWithoutLoop, IsNotServedFromInsideAService) {
    open(m_map);
    int inner = 0;
    QTimer::singleShot(0, [&inner] {
        QTimer::singleShot(0, [&inner] { ++inner; });
        QTest::qSleep(1);
        vuSoundUpdate();
        EXPECT_EQ(inner, 0);
    });
    vuSoundUpdate();
    vuSoundUpdate();
    EXPECT_EQ(inner, 1);
    vuDestroyEditor();
}

TEST_F(HostWithoutLoop, LeavesALoopOfTheHostsAloneAndOutlivesIt) {
    delete qApp; // the library's
    int count = 1;
    char name[] = "host";
    char* arguments[] = {&name[0], nullptr};
    {
        const QApplication application(count, &arguments[0]);
        open(m_map);
        bool isHandled = false;
        QTimer::singleShot(0, [&isHandled] { isHandled = true; });
        vuSoundUpdate();
        EXPECT_FALSE(isHandled);
        vuStartEditing(3, 3, 0, 0);
    }
    EXPECT_FALSE(vuIsEditorActive()) << "its window ended with the application object";
    for (int i = 0; i < 2; ++i) {
        vuUpdateEditing(4, 4, 0, 0, 0, 1);
        vuStopEditing();
        vuUpdateCursor(4, 4, 0, 0);
        vuDestroyEditor();
        vuSoundUpdate();
        vuMovieCameraAltered(nullptr, true);
        vuDestroyMovieEditor();
        vuDestroySettings();
        EXPECT_EQ(open(m_map), nullptr);
        EXPECT_FALSE(vuIsEditorActive());
    }
}
