#include "terrain/panel_fixture.h"

#include <QAccessible>

TEST_F(PanelTest, OpensSimpleAndExpandsToEverythingAndBack) {
    open();
    const QRect simple = panel()->frameGeometry();
    EXPECT_EQ(text(IDC_EXPAND), "Advanced Controls >>");
    EXPECT_FALSE(isEnabled(IDC_TILING));
    expand();
    EXPECT_EQ(text(IDC_EXPAND), "Simple Controls<<");
    EXPECT_TRUE(isEnabled(IDC_TILING));
    // 227 of 115 dialog units.
    EXPECT_NEAR(panel()->frameGeometry().width(), simple.width() * 227.0 / 115, 8);
    EXPECT_NEAR(panel()->frameGeometry().height(), simple.height(), 8);
    expand();
    EXPECT_EQ(panel()->frameGeometry(), simple);
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
