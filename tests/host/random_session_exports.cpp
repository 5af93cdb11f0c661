#include "host/random_session_driver.h"
#include "host/random_session_hands.h"

#include "host/veskutil.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QSlider>
#include <QTabBar>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

class CExportsDriver : public CSessionDriver {
public:
    explicit CExportsDriver(std::string textureDir) : m_strTextureDir(std::move(textureDir)) {}
    ~CExportsDriver() override { vuDestroyEditor(); }

    bool hasControls() const override { return true; }

    void open(CMemoryMap& map, bool fullEditing) override {
        const bool wasOpen = isOpen();
        vuCreateEditor(nullptr, &map, m_strTextureDir.c_str(), nullptr, fullEditing, nullptr);
        if (!wasOpen) {
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the panel before
            m_pWindow = ui::dialog(IDD_MAP_EDITOR);
            m_controls = hands::controlsOf(*m_pWindow);
            m_ids.clear();
            std::ranges::transform(m_controls, std::back_inserter(m_ids), &hands::Control::id);
            m_pWindow->activateWindow();
            waitForKeyboard();
            leaveFields();
        }
    }

    void destroy() override { vuDestroyEditor(); }
    void destroySettings() override { vuDestroySettings(); }
    void start(int x, int z, int edge, int corner) override { vuStartEditing(x, z, edge, corner); }
    void update(int x, int z, int ignored, int amount) override {
        vuUpdateEditing(x, z, ignored, ignored / 2, ignored - 1, amount);
    }
    void stop() override { vuStopEditing(); }
    void hover(int x, int z, int edge, int corner) override { vuUpdateCursor(x, z, edge, corner); }
    bool isOpen() const override { return vuIsEditorActive(); }
    bool isEditing() const override { return vuIsEditingInProgress(); }
    CMapEditorModel* model() const override { return isOpen() ? g_pMapEditorDlg : nullptr; }

    void closeWindow() override { m_pWindow->close(); }

    /// Every sixteenth time with the mouse, as that takes much longer.
    void click(int id) override {
        QWidget& widget = control(id);
        if (!isInReach(widget)) {
            return;
        }
        if (++m_nClicks % 16 == 0) {
            ui::click(widget, QPoint(8, widget.height() / 2)); // a check box hears only its box and text
        } else {
            dynamic_cast<QAbstractButton&>(widget).click();
        }
        leaveFields();
    }

    void clickTab() override {
        QTabBar& tabs = hands::tabBar(control(IDC_TOOL_TABS));
        tabs.setCurrentIndex(1 - tabs.currentIndex());
    }

    Seen pickColour(int swatch, const qxCColour* colour) override {
        Seen seen;
        const CModalSteps user({[&](QWidget* window) {
            auto& dialog = dynamic_cast<QColorDialog&>(*window);
            const QColor offered = dialog.currentColor();
            seen.push_back(describe({offered.red(), offered.green(), offered.blue(), 255}));
            // The colour that a "Cancel" is not to leave behind.
            dialog.setCurrentColor(colour != nullptr ? QColor(colour->r, colour->g, colour->b) : Qt::cyan);
            ui::press(colour != nullptr ? Qt::Key_Return : Qt::Key_Escape);
        }});
        if (isInReach(control(swatch))) {
            ui::doubleClick(control(swatch));
            waitForKeyboard();
        }
        return seen;
    }

    void dragColour(int from, int to) override {
        const auto middleOf = [this](int id) {
            const QWidget& widget = control(id);
            return widget.mapTo(m_pWindow, widget.rect().center());
        };
        QTest::mousePress(m_pWindow->windowHandle(), Qt::LeftButton, Qt::NoModifier, middleOf(from));
        QTest::mouseRelease(m_pWindow->windowHandle(), Qt::LeftButton, Qt::NoModifier, middleOf(to));
    }

    Seen type(int edit, const std::string& text, Leaving leaving) override {
        Seen messages;
        if (isInReach(control(edit))) {
            const CModalSteps user({[&](QWidget* window) { hands::dismiss(*window, messages); }});
            hands::type(control(edit), text, leaving);
            waitForKeyboard();
            leaveFields();
        }
        return messages;
    }

    void spin(int id, bool up) override {
        QWidget& arrows = control(id);
        if (isInReach(arrows)) {
            const int quarter = arrows.height() / 4;
            ui::click(arrows, QPoint(arrows.width() / 2, up ? quarter : arrows.height() - quarter));
            leaveFields();
        }
    }

    void slide(int strength) override {
        auto& slider = dynamic_cast<QSlider&>(control(IDC_STRENGTH));
        while (slider.value() != strength) {
            QTest::keyClick(&slider, slider.value() < strength ? Qt::Key_Right : Qt::Key_Left);
        }
    }

    Seen runDialog(int opener, const std::vector<DialogStep>& steps) override {
        const Seen seen = hands::playDialog(steps, [&] { click(opener); });
        waitForKeyboard();
        return seen;
    }

    const std::vector<int>& controls() const override { return m_ids; }

    Seen shown() const override {
        Seen all;
        all.reserve(m_controls.size());
        std::ranges::transform(m_controls, std::back_inserter(all), &hands::describe);
        return all;
    }

private:
    QWidget& control(int id) const { return ui::control(*m_pWindow, id); }

    bool isInReach(const QWidget& widget) const {
        return widget.isEnabled() &&
               m_pWindow->rect().contains(widget.mapTo(m_pWindow, widget.rect().center()));
    }

    /// The keyboard is the panel's again after a dialog, once Qt has got round to it.
    void waitForKeyboard() {
        EXPECT_TRUE(ui::waitUntil([this] { return m_pWindow->isActiveWindow(); }));
    }

    /// The focus goes where nothing comes of its leaving. On a button it would not stay: when that is
    /// disabled, it moves on to a field.
    void leaveFields() {
        if (isOpen()) {
            control(IDC_STRENGTH).setFocus();
        }
    }

    std::string m_strTextureDir;
    QWidget* m_pWindow = nullptr; // the open panel's
    std::vector<hands::Control> m_controls;
    std::vector<int> m_ids; // theirs
    int m_nClicks = 0;
};

} // namespace

std::unique_ptr<CSessionDriver> makeExportsDriver(const std::string& textureDir) {
    return std::make_unique<CExportsDriver>(textureDir);
}
