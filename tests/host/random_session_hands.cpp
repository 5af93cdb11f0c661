#include "host/random_session_hands.h"

#include "resources/resource_ids.h"
#include "support/ui_driver.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QTest>

#include <algorithm>

namespace hands {

namespace {

bool showsText(int id) {
    return id == IDC_EXPAND || (id >= IDC_SMOOTH_TEXTURE && id <= IDC_DETAIL_TEXTURE);
}

std::string joined(int count, int chosen, const std::function<QString(int)>& entry) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += (i == chosen ? "*" : "") + entry(i).toStdString() + '|';
    }
    return all;
}

std::string textOf(const QWidget& widget, int id) {
    if (const auto* const edit = qobject_cast<const QLineEdit*>(&widget)) {
        return edit->text().toStdString();
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->isCheckable() ? std::to_string(button->isChecked() ? 1 : 0)
               : showsText(id)       ? button->text().toStdString()
                                     : std::string();
    }
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        return label->text().toStdString();
    }
    if (const auto* const slider = qobject_cast<const QAbstractSlider*>(&widget)) {
        return std::to_string(slider->value());
    }
    if (const auto* const bar = qobject_cast<const QProgressBar*>(&widget)) {
        return std::to_string(bar->value());
    }
    if (const auto* const combo = qobject_cast<const QComboBox*>(&widget)) {
        return joined(combo->count(), combo->currentIndex(), [=](int i) { return combo->itemText(i); });
    }
    if (const auto* const list = qobject_cast<const QListWidget*>(&widget)) {
        return joined(list->count(), list->currentRow(), [=](int i) { return list->item(i)->text(); });
    }
    return id == IDC_TOOL_TABS ? std::to_string(tabBar(const_cast<QWidget&>(widget)).currentIndex())
                               : std::string();
}

Seen describeDialog(const QWidget& window) {
    Seen all;
    for (const Control& control : controlsOf(window)) {
        all.push_back(std::to_string(control.id) + ": " + describe(control));
    }
    return all;
}

void chooseRow(QComboBox& box, int row) {
    box.setFocus();
    while (box.currentIndex() != row) {
        QTest::keyClick(&box, row > box.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
    }
}

void chooseRow(QListWidget& list, int row, bool twice) {
    list.scrollToItem(list.item(row));
    const QPoint place = list.visualItemRect(list.item(row)).center();
    ui::click(*list.viewport(), place);
    if (twice) {
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
}

/// Answers whatever comes up.
class CPerson {
public:
    CPerson(const std::vector<DialogStep>& steps, Seen& seen) : m_steps(steps), m_seen(seen) {}

    void answer(QWidget* window) {
        if (auto* const files = qobject_cast<QFileDialog*>(window)) {
            chooseFiles(*files);
        } else if (qobject_cast<QMessageBox*>(window) != nullptr) {
            dismiss(*window, m_seen);
        } else {
            play(*window);
        }
    }

private:
    void play(QWidget& window) {
        for (const DialogStep& step : m_steps) {
            EXPECT_TRUE(ui::waitUntil([&] { return window.isActiveWindow(); })) << "after a message";
            std::ranges::copy(describeDialog(window), std::back_inserter(m_seen));
            m_pStep = &step;
            take(window, step);
        }
    }

    static void take(const QWidget& window, const DialogStep& step) {
        if (step.id == STEP_ESCAPE) {
            ui::press(Qt::Key_Escape);
            return;
        }
        const bool twice = step.id == STEP_DOUBLE_CLICK;
        QWidget& widget = ui::control(window, twice ? IDC_TEXTURES : step.id);
        if (!widget.isEnabled()) {
            return;
        }
        if (auto* const box = qobject_cast<QComboBox*>(&widget)) {
            chooseRow(*box, step.row);
        } else if (auto* const list = qobject_cast<QListWidget*>(&widget)) {
            chooseRow(*list, step.row, twice);
        } else if (qobject_cast<QLineEdit*>(&widget) != nullptr) {
            type(widget, step.text, step.leaving);
        } else {
            ui::click(widget, QPoint(8, 6)); // a check box hears only its box and text
        }
    }

    void chooseFiles(QFileDialog& dialog) const {
        QStringList names;
        for (const std::string& file : m_pStep->files) {
            names << QString::fromStdString(file);
        }
        if (names.empty()) {
            dialog.reject();
            return;
        }
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText('"' + names.join("\" \"") + '"');
        QMetaObject::invokeMethod(&dialog, "accept");
    }

    const std::vector<DialogStep>& m_steps;
    Seen& m_seen;
    const DialogStep* m_pStep = nullptr;
};

} // namespace

QTabBar& tabBar(QWidget& tabs) {
    auto* const bar = qobject_cast<QTabBar*>(&tabs);
    return bar != nullptr ? *bar : *tabs.findChild<QTabBar*>();
}

std::vector<Control> controlsOf(const QWidget& dialog) {
    std::vector<Control> controls;
    for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (const int id = widget->objectName().toInt(); id > 0) {
            controls.push_back({id, widget});
        }
    }
    std::ranges::sort(controls, {}, &Control::id);
    return controls;
}

std::string describe(const Control& control) {
    return ::describe(textOf(*control.widget, control.id), control.widget->isEnabled());
}

void type(QWidget& edit, const std::string& text, Leaving leaving) {
    ui::type(edit, QString::fromStdString(text));
    if (text.empty()) {
        QTest::keyClick(&edit, Qt::Key_Delete); // what is selected
    }
    if (leaving != Leaving::NOT_YET) {
        QTest::keyClick(&edit, leaving == Leaving::ENTER ? Qt::Key_Return : Qt::Key_Tab);
    }
}

void dismiss(QWidget& messageBox, Seen& messages) {
    messages.push_back(dynamic_cast<QMessageBox&>(messageBox).text().toStdString());
    QTest::keyClick(&messageBox, Qt::Key_Return);
}

Seen playDialog(const std::vector<DialogStep>& steps, const std::function<void()>& open) {
    constexpr std::size_t MOST_WINDOWS = 40;
    Seen seen;
    CPerson person(steps, seen);
    const CModalSteps user(
        std::vector<CModalSteps::Step>(MOST_WINDOWS, [&](QWidget* w) { person.answer(w); }));
    open();
    return seen;
}

} // namespace hands
