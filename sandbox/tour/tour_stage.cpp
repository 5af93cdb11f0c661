#include "sandbox/tour/tour_stage.h"

#include "engine/memory/engine_directories.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QPainter>
#include <QPolygonF>
#include <QScreen>
#include <QTabBar>
#include <QToolBar>
#include <algorithm>
#include <bit>
#include <filesystem>
#include <utility>

namespace {

constexpr int FIELD_INSET = 12; // pixels from the left edge

/// The window system's pointer is not part of a picture of the screen.
void drawPointer(QImage& picture, QPointF tip) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(tip);
    painter.setPen(QPen(Qt::black, 1.2));
    painter.setBrush(Qt::white);
    painter.drawPolygon(
        QPolygonF({{0, 0}, {0, 17}, {4, 13.2}, {6.8, 19.5}, {9.4, 18.4}, {6.7, 12.3}, {12, 12}}));
}

/// The dialogs that are open, those behind first.
QWidgetList openDialogs() {
    QWidgetList dialogs = QApplication::topLevelWidgets();
    dialogs.removeIf([](const QWidget* widget) {
        return !widget->isVisible() || widget->windowType() != Qt::Dialog ||
               widget->frameGeometry() != widget->geometry();
    });
    const auto layer = [](const QWidget* dialog) {
        return dialog == QApplication::activeModalWidget() ? 2 : (dialog->isModal() ? 1 : 0);
    };
    std::ranges::stable_sort(dialogs, {}, layer);
    return dialogs;
}

/// Without a window manager, as under a virtual display, a dialog has no frame and cannot be told from what
/// it stands on. The picture gets the frame that it would have.
void drawFrames(QImage& picture, QPoint origin) {
    constexpr int CAPTION = 22;
    const QColor colour(0x3a, 0x4d, 0x66);
    QPainter painter(&picture);
    QRegion free(picture.rect());
    QWidgetList dialogs = openDialogs();
    std::ranges::reverse(dialogs);
    for (const QWidget* dialog : std::as_const(dialogs)) {
        const QRect inside = dialog->geometry().translated(-origin);
        const QRect outside = inside.adjusted(-1, -CAPTION, 1, 1);
        painter.setClipRegion(free & (QRegion(outside) - inside));
        painter.fillRect(outside, colour);
        painter.setPen(Qt::white);
        painter.drawText(QRect(outside.topLeft(), QSize(outside.width(), CAPTION)).adjusted(8, 0, 0, 0),
                         Qt::AlignVCenter, dialog->windowTitle());
        free -= outside;
    }
}

QWidget& controlOf(QWidget* panel, int id) {
    require(panel != nullptr, "the editor is not open");
    auto* widget = findControl(*panel, id);
    require(widget != nullptr, QString("the editor has no control %1").arg(id));
    return *widget;
}

} // namespace

CTourStage::CTourStage(CMainWindow& window) : m_window(window) {
    std::vector<std::filesystem::path> folders = CEngineDirectories::getDirectories();
    folders.emplace_back(m_delivery.path().toStdString());
    CEngineDirectories::setDirectories(folders);
    // How fast this machine draws is not part of the session.
    if (auto* frameRate = window.findChild<QWidget*>("frameRate")) {
        frameRate->hide();
    }
}

QWidget& CTourStage::control(int id) {
    return controlOf(dialog(IDD_MAP_EDITOR), id);
}

QWidget& CTourStage::filmControl(int id) {
    return controlOf(dialog(IDD_MOVIE_EDITOR), id);
}

void CTourStage::clickFilm(int id) {
    QWidget& widget = filmControl(id);
    require(widget.isEnabled(), QString("control %1 is disabled").arg(id));
    m_hands.click(widget);
}

void CTourStage::chooseTool(int tool) {
    clickControl(tool);
    const auto* button = qobject_cast<QAbstractButton*>(&control(tool));
    require(button != nullptr && button->isChecked(), QString("tool %1 is not down after a click").arg(tool));
}

void CTourStage::setStrength(Qt::Key end) {
    QWidget& slider = control(IDC_STRENGTH);
    slider.setFocus();
    m_hands.pressKey(slider, end);
}

void CTourStage::showTab(int index) {
    QWidget& tabs = control(IDC_TOOL_TABS);
    auto* bar = qobject_cast<QTabBar*>(&tabs);
    if (bar == nullptr) {
        bar = tabs.findChild<QTabBar*>();
    }
    require(bar != nullptr, "the tabs cannot be found");
    m_hands.click(*bar, QRectF(bar->tabRect(index)).center());
    require(bar->currentIndex() == index, QString("tab %1 does not come forward").arg(index));
}

void CTourStage::enterText(QWidget& field, const QString& text) {
    m_hands.click(field, QPointF(FIELD_INSET, field.height() / 2.0)); // clear of a spin box's arrows
    m_hands.pressKey(field, Qt::Key_A, Qt::ControlModifier);
    m_hands.type(field, text);
    m_hands.pressKey(field, Qt::Key_Return);
}

QString CTourStage::textOf(int id) {
    return control(id).property("text").toString();
}

QColor CTourStage::colourOf(QWidget& swatch) {
    return swatch.grab().toImage().pixelColor(swatch.width() / 2, swatch.height() / 2);
}

void CTourStage::dragColour(int from, int to) {
    const QColor colour = swatchColour(from);
    m_hands.moveTo(control(from), QRectF(control(from).rect()).center());
    m_hands.press(Qt::LeftButton);
    m_hands.moveTo(control(to), QRectF(control(to).rect()).center());
    m_hands.release(Qt::LeftButton);
    require(swatchColour(to) == colour, QString("the colour does not reach swatch %1").arg(to));
}

void CTourStage::clickToolBar(const char* action) {
    const auto* bar = m_window.findChild<QToolBar*>();
    QWidget* button = bar->widgetForAction(m_window.findChild<QAction*>(action));
    require(button != nullptr, QString("the tool bar has no %1").arg(action));
    m_hands.click(*button);
}

QPointF CTourStage::positionOf(double x, double z) {
    const double height = groundHeight(heightFieldOf(map()), x, z);
    const auto position =
        view().project(QVector3D(static_cast<float>(x), static_cast<float>(height), static_cast<float>(z)));
    require(position.has_value() && QRectF(view().rect()).contains(*position),
            QString("the point %1, %2 is out of sight").arg(x).arg(z));
    return *position;
}

std::uint64_t CTourStage::mapHash() {
    constexpr std::uint64_t OFFSET = 14695981039346656037ULL; // FNV-1a
    constexpr std::uint64_t PRIME = 1099511628211ULL;
    std::uint64_t hash = OFFSET;
    const auto fold = [&hash](std::uint32_t value) { hash = (hash ^ value) * PRIME; };
    std::ranges::for_each(map().getHeights(), fold);
    std::ranges::for_each(map().getBlends(), fold);
    std::ranges::for_each(map().getColours(),
                          [&](const qxCColour& colour) { fold(std::bit_cast<std::uint32_t>(colour)); });
    return hash;
}

int CTourStage::markedPoints() {
    return static_cast<int>(
        std::ranges::count_if(map().getMarkers(), [](const qxCColour& colour) { return colour.a != 0; }));
}

int CTourStage::waterPoints() {
    return static_cast<int>(std::ranges::count(map().getWaterFlags(), 1));
}

QImage CTourStage::takePicture() {
    // Whatever is still to be drawn is drawn before the picture is taken.
    view().repaint();
    QApplication::processEvents();
    QScreen& screen = *m_window.screen();
    const QRect frame = m_window.geometry();
    QImage picture = screen.grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).toImage();
    require(!picture.isNull(), "the screen cannot be seen");
    drawFrames(picture, frame.topLeft());
    drawPointer(picture, m_hands.screenPosition() - frame.topLeft());
    return picture;
}

QImage CTourStage::takeStepPicture() {
    const QImage prepared = std::exchange(m_stepPicture, QImage());
    return prepared.isNull() ? takePicture() : prepared;
}

void CTourStage::waitForPanel() {
    const QWidget* const panel = dialog(IDD_MAP_EDITOR);
    require(panel != nullptr, "the map editor is not open");
    const auto isBeside = [&] {
        const QRect around(view().mapToGlobal(QPoint()), view().size());
        const QRect docked(around.topRight() + QPoint(1, 0), panel->frameGeometry().size());
        return panel->frameGeometry() == docked;
    };
    require(waitUntil(isBeside), "the map editor does not stand beside the view");
}
