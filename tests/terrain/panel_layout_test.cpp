#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "platform/resources.h"

#include <QAccessible>
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
    EXPECT_NEAR(full.width(), simple.width() * 227.0 / 115, 8);
    EXPECT_NEAR(full.height(), simple.height(), 8);

    expand();
    EXPECT_EQ(panel()->frameGeometry().size(), simple);
    EXPECT_EQ(text(IDC_EXPAND), "Advanced Controls >>");
    EXPECT_EQ(panel()->pos(), place);
    expand();
    EXPECT_EQ(panel()->frameGeometry().size(), full);
}

TEST_F(PanelTest, AToolThatIsDownIsPlainlySeen) {
    open();
    click(IDC_TOOL_RAISE);
    for (const int id : {IDC_TOOL_RAISE, IDC_TOOL_FLATTEN}) {
        const QImage seen = control(id)->grab().toImage();
        const QColor accent = control(id)->palette().color(QPalette::Active, QPalette::Highlight);
        int framed = 0;
        for (int x = 0; x < seen.width(); ++x) {
            framed += seen.pixelColor(x, 0) == accent ? 1 : 0;
        }
        EXPECT_EQ(framed > seen.width() / 2, id == IDC_TOOL_RAISE);
    }
}

TEST_F(PanelTest, EveryControlSaysWhatItIs) {
    open();
    expand();
    const auto nameOf = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    for (QWidget* widget : panel()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        const int id = widget->objectName().toInt();
        const bool isSpin = id == IDC_BLEND_SPIN || id == IDC_VARIATION_SPIN || id == IDC_TILING_SPIN;
        if (id <= 0 || id == IDC_TOOL_TABS || isSpin || !widget->isVisible() || !widget->isEnabled()) {
            continue;
        }
        EXPECT_FALSE(nameOf(widget).isEmpty()) << id;
    }
    EXPECT_EQ(nameOf(control(IDC_BLEND)), "Blend");
    EXPECT_EQ(nameOf(control(IDC_STRENGTH)), "Strength");
    EXPECT_EQ(nameOf(control(IDC_TINT_1)), "Tint 1");
    EXPECT_TRUE(control(IDC_TINT_1)->toolTip().contains("Double-click"));
    EXPECT_EQ(control(IDC_TOOL_ROUGHEN)->toolTip(), "Roughen");
    selectTab(1);
    EXPECT_EQ(control(IDC_TOOL_SELECT)->toolTip(), "Add Quad Detail");
    EXPECT_EQ(control(IDC_UNDO_FILL)->toolTip(), "Undo history");
}
