// Opening the panels of the editors: the window is made, shown and destroyed again; against the same dialog
// written straight in Qt, with the same widgets in the same places, each with its text, entries, icon and one
// connection.
#include "bench/ratio.h"
#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "host/veskutil.h"
#include "movie/panel/movie_editor_dlg.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPaintEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int ROUNDS = 61;
constexpr int OPENINGS_A_ROUND =
    10; // a dialog built in the memory that another kind left is not the usual case
constexpr double GOAL = 1.20;

QWidget* openPanel(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name) {
            return window;
        }
    }
    return nullptr;
}

/// A field that paints itself, as an owner-drawn button does.
class CField : public QAbstractButton {
public:
    using QAbstractButton::QAbstractButton;

protected:
    void paintEvent(QPaintEvent*) override {}
};

/// What a widget of the panel is and shows.
struct Look {
    explicit Look(const QWidget& widget)
        : kind(widget.metaObject()->className())
        , name(widget.objectName())
        , geometry(widget.geometry())
        , toolTip(widget.toolTip())
        , focusPolicy(widget.focusPolicy())
        , enabled(widget.isEnabled())
        , hidden(widget.isHidden()) {
        if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
            text = button->text();
            icon = button->icon();
            iconSize = button->iconSize();
            checkable = button->isCheckable();
            checked = button->isChecked();
        } else if (const auto* const edit = qobject_cast<const QLineEdit*>(&widget)) {
            text = edit->text();
        } else if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            text = label->text();
        } else if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) {
            text = group->title();
        } else if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
            for (int i = 0; i < list->count(); ++i) {
                entries << list->itemText(i);
            }
            chosen = list->currentIndex();
        } else if (const auto* const bar = qobject_cast<const QScrollBar*>(&widget)) {
            maximum = bar->maximum();
        }
    }

    QByteArray kind;
    QString name;
    QRect geometry;
    QString text;
    QStringList entries;
    int chosen = -1;
    int maximum = 0;
    QString toolTip;
    QString accessibleName;
    QIcon icon;
    QSize iconSize;
    Qt::FocusPolicy focusPolicy;
    bool checkable = false;
    bool checked = false;
    bool enabled;
    bool hidden;
};

QAbstractButton* makeButton(const Look& look, QWidget* parent) {
    QAbstractButton* button = nullptr;
    if (look.kind == "QPushButton") {
        auto* const push = new QPushButton(look.text, parent);
        push->setAutoDefault(false);
        button = push;
    } else if (look.kind == "QCheckBox") {
        button = new QCheckBox(look.text, parent);
    } else if (look.kind == "QRadioButton") {
        button = new QRadioButton(look.text, parent);
    } else {
        button = new CField(parent);
    }
    button->setCheckable(look.checkable);
    button->setChecked(look.checked);
    if (!look.icon.isNull()) {
        button->setIcon(look.icon);
        button->setIconSize(look.iconSize);
    }
    QObject::connect(button, &QAbstractButton::clicked, parent, [parent] { parent->update(); });
    return button;
}

QWidget* makeList(const Look& look, QWidget* parent) {
    auto* const list = new QComboBox(parent);
    list->addItems(look.entries);
    list->setCurrentIndex(look.chosen);
    QObject::connect(list, &QComboBox::activated, parent, [parent] { parent->update(); });
    return list;
}

QWidget* makeWidget(const Look& look, QWidget* parent) {
    if (look.kind == "QComboBox") {
        return makeList(look, parent);
    }
    if (look.kind == "QScrollBar") {
        auto* const bar = new QScrollBar(Qt::Horizontal, parent);
        bar->setRange(0, look.maximum);
        QObject::connect(bar, &QScrollBar::valueChanged, parent, [parent] { parent->update(); });
        return bar;
    }
    if (look.kind == "QFrame") {
        auto* const frame = new QFrame(parent);
        frame->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        return frame;
    }
    if (look.kind == "QLabel") {
        return new QLabel(look.text, parent);
    }
    if (look.kind == "QGroupBox") {
        return new QGroupBox(look.text, parent);
    }
    if (look.kind == "QLineEdit") {
        auto* const edit = new QLineEdit(look.text, parent);
        QObject::connect(edit, &QLineEdit::editingFinished, parent, [parent] { parent->update(); });
        return edit;
    }
    if (look.kind == "QSlider") {
        auto* const slider = new QSlider(Qt::Horizontal, parent);
        slider->setRange(1, 10);
        QObject::connect(slider, &QSlider::valueChanged, parent, [parent] { parent->update(); });
        return slider;
    }
    if (look.kind == "QTabBar") {
        auto* const tabs = new QTabBar(parent);
        tabs->addTab("Terrain");
        tabs->addTab("Details");
        QObject::connect(tabs, &QTabBar::currentChanged, parent, [parent] { parent->update(); });
        return tabs;
    }
    if (look.kind == "QProgressBar") {
        return new QProgressBar(parent);
    }
    if (look.kind == "QAbstractSpinBox") {
        auto* const arrows = new QAbstractSpinBox(parent);
        arrows->setFrame(false);
        return arrows;
    }
    return makeButton(look, parent);
}

class CStraightDialog {
public:
    explicit CStraightDialog(const QWidget& panel)
        : m_strTitle(panel.windowTitle())
        , m_flags(panel.windowFlags())
        , m_geometry(panel.geometry())
        , m_font(panel.font()) {
        for (const QWidget* child : panel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            m_looks.emplace_back(*child);
        }
    }

    std::unique_ptr<QDialog> open() const {
        auto dialog = std::make_unique<QDialog>(nullptr, m_flags);
        dialog->setWindowTitle(m_strTitle);
        dialog->setFont(m_font);
        dialog->setGeometry(m_geometry);
        for (const Look& look : m_looks) {
            QWidget* const widget = makeWidget(look, dialog.get());
            widget->setObjectName(look.name);
            widget->setGeometry(look.geometry);
            widget->setFocusPolicy(look.focusPolicy);
            widget->setEnabled(look.enabled);
            widget->setToolTip(look.toolTip);
            widget->setAccessibleName(look.accessibleName);
            if (look.hidden) {
                widget->hide();
            }
        }
        dialog->show();
        return dialog;
    }

    std::size_t widgetCount() const { return m_looks.size(); }

private:
    QString m_strTitle;
    Qt::WindowFlags m_flags;
    QRect m_geometry;
    QFont m_font;
    std::vector<Look> m_looks;
};

/// One of the two panels: how a host opens and closes it.
struct PanelKind {
    const char* windowName;
    std::function<void()> open;
    std::function<void()> close;
};

class COpenings {
public:
    explicit COpenings(PanelKind kind) : m_kind(std::move(kind)) {
        m_kind.open();
        m_pStraight = std::make_unique<CStraightDialog>(*openPanel(m_kind.windowName));
        close();
    }

    void panel() {
        m_kind.open();
        close();
    }
    void straight() {
        m_pStraight->open().reset();
        turnEventLoop();
    }
    void panelPainted() {
        m_kind.open();
        QApplication::processEvents();
        close();
    }
    void straightPainted() {
        auto dialog = m_pStraight->open();
        QApplication::processEvents();
        dialog.reset();
        turnEventLoop();
    }
    std::size_t widgetCount() const { return m_pStraight->widgetCount(); }

private:
    /// The closed window is deleted by the next turn of the event loop, which belongs to the price.
    void close() {
        m_kind.close();
        turnEventLoop();
    }
    static void turnEventLoop() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    PanelKind m_kind;
    std::unique_ptr<CStraightDialog> m_pStraight;
};

std::function<void()> repeated(std::function<void()> opening) {
    return [opening = std::move(opening)] {
        for (int i = 0; i < OPENINGS_A_ROUND; ++i) {
            opening();
        }
    };
}

void compare(const std::string& name, std::function<void()> panel, std::function<void()> straight) {
    const auto medians =
        bench::medianSeconds({repeated(std::move(panel)), repeated(std::move(straight))}, ROUNDS);
    bench::printRatio(name.c_str(), medians[0] / OPENINGS_A_ROUND, medians[1] / OPENINGS_A_ROUND, GOAL);
}

void measure(const std::string& name, PanelKind kind) {
    COpenings openings(std::move(kind));
    std::printf("%s: widgets in each dialog: %zu\n", name.c_str(), openings.widgetCount());
    compare(
        name + " opening / straight Qt", [&] { openings.panel(); }, [&] { openings.straight(); });
    compare(
        name + " opening and first painting / straight Qt", [&] { openings.panelPainted(); },
        [&] { openings.straightPainted(); });
}

void measureMapEditor() {
    CMemoryScene scene;
    CMemoryMap map(64, &scene);
    measure("map editor",
            {"dialog-212", [&map] { vuCreateEditor(nullptr, &map, "", nullptr, true, nullptr); },
             [] { vuDestroyEditor(); }});
    vuDestroySettings();
}

void measureMovieEditor() {
    CMemoryScene scene;
    CMemoryMovie movie(&scene, 500);
    movie.addCamera("one");
    movie.addCamera("two");
    CMovieEditorDlg* panel = nullptr; // without the exports, which open and close the sound device too
    const auto open = [&] {
        panel = std::make_unique<CMovieEditorDlg>(true).release(); // its window owns it
        panel->bind(&movie);
        panel->createWindow(nullptr);
    };
    measure("movie editor", {"dialog-2005", open, [&] { panel->destroy(); }});
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    measureMapEditor();
    measureMovieEditor();
    return 0;
}
