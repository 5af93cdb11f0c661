#include "sandbox/keys/panel_focus.h"

#include "sandbox/hands/dialogs.h"
#include "sandbox/keys/map_panel.h"
#include "sandbox/view/map_view.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <chrono>

namespace {

constexpr int FILM_TEMPLATE = 2005;
constexpr std::chrono::milliseconds SETTLED(60);

bool takesText(const QWidget& widget) {
    const auto isA = [&widget](auto* kind) { return qobject_cast<decltype(kind)>(&widget) != nullptr; };
    return isA(static_cast<const QLineEdit*>(nullptr)) ||
           isA(static_cast<const QAbstractSpinBox*>(nullptr)) ||
           isA(static_cast<const QComboBox*>(nullptr)) ||
           isA(static_cast<const QAbstractItemView*>(nullptr)) ||
           isA(static_cast<const QKeySequenceEdit*>(nullptr)) || isA(static_cast<const QMenu*>(nullptr));
}

bool isLetter(const QKeyEvent& key) {
    constexpr Qt::KeyboardModifiers COMMANDS = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !(key.modifiers() & COMMANDS) && !key.text().isEmpty() && key.text().front().isPrint();
}

bool isFilmPanel(const QWidget& widget) {
    return widget.window() == shownDialog(FILM_TEMPLATE);
}

/// A button does what it is for when Space is struck, and the film's panel plays.
bool usesSpace(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr || isFilmPanel(widget);
}

/// A quick hand is on the next button before the window system has given the keyboard back; a button that
/// heard of that would not be pressed any more.
bool isHeldDown(const QWidget& widget) {
    const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
    return button != nullptr && button->window() == CMapPanel::window() && button->isDown() &&
           QApplication::mouseButtons() != Qt::NoButton;
}

const BrushText* brushOf(int control) {
    const auto found = std::ranges::find(BRUSHES, control, &BrushText::control);
    return found != BRUSHES.end() ? &*found : nullptr;
}

QString tipOf(int control) {
    if (const BrushText* const brush = brushOf(control)) {
        return CPanelFocus::tr(brush->tip) + CPanelFocus::tr("\n[ and ] choose a smaller and a larger one.");
    }
    const MapTool* const tool = toolOf(control);
    if (tool == nullptr || *CMapPanel::textOf(*tool).name == '\0') {
        return {};
    }
    const ToolText& text = CMapPanel::textOf(*tool);
    const auto* const entry = [control]() -> const QAction* {
        for (const QWidget* const window : QApplication::topLevelWidgets()) {
            if (const auto* found = window->findChild<QAction*>(QStringLiteral("tool-%1").arg(control))) {
                return found;
            }
        }
        return nullptr;
    }();
    const QString key = entry != nullptr ? entry->shortcut().toString(QKeySequence::NativeText) : QString();
    const QString title = key.isEmpty() ? CPanelFocus::tr(text.name)
                                        : QStringLiteral("%1 (%2)").arg(CPanelFocus::tr(text.name), key);
    return title + '\n' + CPanelFocus::tr(text.tip);
}

} // namespace

CPanelFocus::CPanelFocus(CMapView& view) : QObject(&view), m_view(view) {
    qApp->installEventFilter(this);
}

void CPanelFocus::giveBack() {
    giveBackNow();
    // A panel that asked for the keyboard just before may get it only now.
    QTimer::singleShot(SETTLED, this, [this] {
        const QWidget* const active = QApplication::activeWindow();
        if (active != nullptr && active == CMapPanel::window()) {
            giveBackNow();
        }
    });
}

void CPanelFocus::giveBackNow() {
    if (QApplication::activeModalWidget() == nullptr && QApplication::mouseButtons() == Qt::NoButton) {
        m_view.window()->activateWindow();
        m_view.setFocus(Qt::OtherFocusReason);
    }
}

bool CPanelFocus::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return watched == QApplication::focusWidget() && claimForControl(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return watched->isWidgetType() && watched == QApplication::focusWidget() && watched != &m_view &&
               passToView(*static_cast<QWidget*>(watched), *static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonRelease:
        if (watched->isWidgetType()) {
            noticeRelease(*static_cast<QWidget*>(watched));
        }
        return false;
    case QEvent::FocusOut:
        return watched->isWidgetType() && isHeldDown(*static_cast<QWidget*>(watched));
    case QEvent::ToolTip:
        return watched->isWidgetType() &&
               showTip(*static_cast<QWidget*>(watched), static_cast<const QHelpEvent*>(event)->globalPos());
    default:
        return false;
    }
}

/// Keys that the focused control needs itself are no shortcuts meanwhile.
bool CPanelFocus::claimForControl(QKeyEvent& key) {
    const QWidget& focused = *QApplication::focusWidget();
    constexpr std::array FILM_KEYS{Qt::Key_Home, Qt::Key_End, Qt::Key_Space};
    const bool forFilm =
        isFilmPanel(focused) && (isLetter(key) || std::ranges::find(FILM_KEYS, key.key()) != FILM_KEYS.end());
    const bool forText = takesText(focused) && isLetter(key);
    if (forFilm || forText) {
        key.accept();
    }
    return forFilm || forText;
}

bool CPanelFocus::passToView(QWidget& focused, QKeyEvent& key) {
    const bool ours = focused.window() == m_view.window() || focused.window() == CMapPanel::window() ||
                      isFilmPanel(focused);
    const bool flies = CFlyKeys::isFlyKey(key.key()) &&
                       (isLetter(key) || key.key() == Qt::Key_Shift || key.type() == QEvent::KeyRelease);
    if (!ours || !flies || takesText(focused) || QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr || (key.key() == Qt::Key_Space && usesSpace(focused))) {
        return false;
    }
    QKeyEvent copy(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat());
    QCoreApplication::sendEvent(&m_view, &copy);
    return key.key() != Qt::Key_Shift;
}

void CPanelFocus::noticeRelease(const QWidget& pressed) {
    const int control = pressed.objectName().toInt();
    if (pressed.window() == CMapPanel::window() &&
        (toolOf(control) != nullptr || brushOf(control) != nullptr)) {
        QTimer::singleShot(0, this, &CPanelFocus::giveBack); // the button comes first
    }
}

bool CPanelFocus::showTip(QWidget& widget, const QPoint& place) {
    const QString tip =
        widget.window() == CMapPanel::window() ? tipOf(widget.objectName().toInt()) : QString();
    if (tip.isEmpty()) {
        return false;
    }
    QToolTip::showText(place, tip, &widget);
    return true;
}
