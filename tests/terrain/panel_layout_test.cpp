#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "platform/resources.h"
#include "resources/resource_ids.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QApplication>
#include <QTest>

#include <algorithm>

namespace {

/// The controls of the template that stand outside the frame of the simple layout.
std::vector<int> advancedControls() {
    const DialogTemplate layout = *findDialog(embeddedResources(), IDD_MAP_EDITOR);
    const DialogRect frame = std::ranges::find(layout.items, IDC_SIMPLE_FRAME, &DialogItem::id)->rect;
    std::vector<int> ids;
    for (const DialogItem& item : layout.items) {
        if (item.rect.x >= frame.x + frame.width && item.id != IDC_STATIC) {
            ids.push_back(item.id);
        }
    }
    return ids;
}

} // namespace

TEST_F(PanelTest, OpensSimpleAndExpandsToEverythingAndBack) {
    open();
    const QSize simple = panel()->frameGeometry().size();
    const QPoint place = panel()->pos();
    ASSERT_EQ(advancedControls().size(), 20U);
    EXPECT_FALSE(isShown(IDC_SIMPLE_FRAME));
    for (const int id : advancedControls()) {
        EXPECT_FALSE(isEnabled(id)) << id;
    }
    EXPECT_EQ(text(IDC_EXPAND), "Advanced Controls >>");

    expand();
    const QSize full = panel()->frameGeometry().size();
    EXPECT_EQ(text(IDC_EXPAND), "Simple Controls<<");
    EXPECT_TRUE(control(IDC_PREVIOUS_TEXTURE)->hasFocus()) << "the control after the toggle";
    for (const int id : advancedControls()) {
        EXPECT_TRUE(isEnabled(id)) << id;
        EXPECT_TRUE(panel()->rect().contains(control(id)->geometry())) << id;
    }
    EXPECT_FALSE(isShown(IDC_SIMPLE_FRAME));
    // 227 of 115 dialog units.
    EXPECT_NEAR(full.width(), simple.width() * 227 / 115, 8);
    EXPECT_NEAR(full.height(), simple.height(), 8);

    expand();
    EXPECT_EQ(panel()->frameGeometry().size(), simple);
    EXPECT_EQ(text(IDC_EXPAND), "Advanced Controls >>");
    EXPECT_EQ(panel()->pos(), place);
    expand();
    EXPECT_EQ(panel()->frameGeometry().size(), full);
}

TEST_F(PanelTest, IsCentredOverTheHostsWindow) {
    open(); // the first panel brings the application that a widget needs
    vuDestroyEditor();
    QWidget host;
    host.setGeometry(120, 90, 500, 640);
    host.show();
    vuCreateEditor(reinterpret_cast<HWND>(host.winId()), &m_map, "", nullptr, true, nullptr);
    const QPoint offset = panel()->frameGeometry().center() - host.frameGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 2);
    vuDestroyEditor();
}

TEST_F(PanelTest, TabVisitsTheControlsInTheOrderOfTheTemplate) {
    open();
    control(IDC_HEIGHT)->setFocus();
    std::vector<int> visited;
    for (int key = 0; key < 3; ++key) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.push_back(QApplication::focusWidget()->objectName().toInt());
    }
    EXPECT_EQ(visited, (std::vector<int>{IDC_HIDE_CURSOR, IDC_STRENGTH, IDC_TOOL_TABS}));
}

TEST_F(PanelTest, ControlsOfOneLayoutDoNotOverlap) {
    open();
    expand();
    const QList<QWidget*> children = panel()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    const auto isGround = [](const QWidget* widget) {
        return widget->objectName().toInt() == IDC_TOOL_TABS ||
               widget->objectName().toInt() == IDC_SIMPLE_FRAME || widget->inherits("QGroupBox");
    };
    for (const QWidget* one : children) {
        for (const QWidget* other : children) {
            if (one < other && !isGround(one) && !isGround(other) && one->isVisible() && other->isVisible()) {
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << one->objectName().toStdString() << " and " << other->objectName().toStdString();
            }
        }
    }
}
