#include "sandbox/app/edit_menu.h"

#include "sandbox/keys/map_panel.h"
#include "sandbox/view/map_view.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QInputDialog>
#include <QMenuBar>
#include <QMouseEvent>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>

#include <algorithm>
#include <utility>

namespace {

constexpr const char* BUDGET = "journal/megabytes";
constexpr std::size_t LEAST_BUDGET = 16; // megabytes
constexpr int PANEL_UNDO = 2015;
constexpr const char* MOVIE_PANEL = "dialog-2005";

std::size_t budget() {
    const QVariant kept = QSettings().value(BUDGET);
    return kept.isValid() ? std::max<std::size_t>(kept.toULongLong(), LEAST_BUDGET) << 20U
                          : CMapJournal::STANDARD_BUDGET;
}

QString plain(QString text) {
    return text.remove('&').remove("...");
}

} // namespace

/// What a press of this widget is called; nothing for one that does nothing to map or film.
QString CEditMenu::nameOf(const QWidget& pressed) const {
    if (const auto* const menu = qobject_cast<const QMenu*>(&pressed)) {
        const QAction* const entry = menu->actionAt(menu->mapFromGlobal(QCursor::pos()));
        return entry != nullptr ? plain(entry->text()) : QString();
    }
    if (qobject_cast<const CMapView*>(&pressed) != nullptr) {
        if (m_pFilm != nullptr && m_pFilm->isLookedThrough()) {
            return tr("Camera Move");
        }
        const MapTool* const tool = CMapPanel::chosenTool();
        return tool != nullptr ? tr(CMapPanel::textOf(*tool).name) : QString();
    }
    if (pressed.window() == CMapPanel::window() && pressed.objectName().toInt() == PANEL_UNDO) {
        return tr("Undo on the Panel");
    }
    const auto* const button = qobject_cast<const QAbstractButton*>(&pressed);
    const QString text =
        button != nullptr && !button->text().isEmpty() ? button->text() : pressed.accessibleName();
    return text.isEmpty() && pressed.window()->objectName() == MOVIE_PANEL ? tr("Change of the Film")
                                                                           : plain(text);
}

CEditMenu::CEditMenu(QMainWindow& window, CMapView& view) : QObject(&window), m_window(window), m_view(view) {
    QMenu* const menu = window.menuBar()->addMenu(tr("&Edit"));
    m_pUndo = menu->addAction(tr("&Undo"), QKeySequence("Ctrl+Z"), this, [this] { go(false); });
    m_pUndo->setObjectName("undo");
    m_pRedo = menu->addAction(tr("&Redo"), QKeySequence("Ctrl+Shift+Z"), this, [this] { go(true); });
    m_pRedo->setObjectName("redo");
    menu->addSeparator();
    menu->addAction(tr("&Memory for Undo..."), this, &CEditMenu::askBudget)->setObjectName("undo-memory");
    auto* const other = new QShortcut(QKeySequence("Ctrl+Y"), &window); // what other programs have
    other->setContext(Qt::ApplicationShortcut);
    connect(other, &QShortcut::activated, this, [this] { go(true); });
    qApp->installEventFilter(this);
    showSteps();
}

void CEditMenu::askBudget() {
    constexpr int MOST = 65'536; // megabytes
    constexpr int STEP = 64;
    bool accepted = false;
    const int megabytes = QInputDialog::getInt(
        &m_window, tr("Memory for Undo"), tr("Megabytes that the steps may take; beyond that the oldest go:"),
        static_cast<int>(budget() >> 20U), static_cast<int>(LEAST_BUDGET), MOST, STEP, &accepted);
    if (!accepted) {
        return;
    }
    QSettings().setValue(BUDGET, megabytes);
    if (m_pJournal != nullptr) {
        m_pJournal->setBudget(budget());
        showSteps();
    }
}

void CEditMenu::setMap(CMemoryMap* map, CFilm* film) {
    m_pFilm = film;
    m_pJournal = map != nullptr ? std::make_unique<CMapJournal>(*map, film, budget()) : nullptr;
    m_strName.clear();
    showSteps();
}

bool CEditMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        const auto& pressed = *static_cast<const QWidget*>(watched);
        if (const QString name = nameOf(pressed); !name.isEmpty()) {
            m_strName = name;
        }
    } else if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
               m_view.isStroking()) {
        cancelStroke();
        return true;
    }
    return false;
}

bool CEditMenu::isUnderWay() const {
    return QApplication::mouseButtons() != Qt::NoButton || m_view.isFlyingFilm() ||
           (m_pFilm != nullptr && m_pFilm->movie().isPlaying());
}

void CEditMenu::follow() {
    if (m_pJournal == nullptr || isUnderWay()) {
        return;
    }
    const auto details = CMapPanel::showsDetails() ? CMapJournal::Details::LOOK : CMapJournal::Details::SKIP;
    if (m_pJournal->closeStep(m_strName.isEmpty() ? tr("Change") : m_strName, details)) {
        showSteps();
    }
}

void CEditMenu::markSaved() {
    if (m_pJournal != nullptr) {
        follow();
        m_pJournal->markSaved();
    }
}

void CEditMenu::markUnsaved() {
    if (m_pJournal != nullptr) {
        m_pJournal->markUnsaved();
    }
}

void CEditMenu::go(bool forward) {
    if (m_pJournal == nullptr || isUnderWay()) {
        return; // in the middle of a stroke
    }
    m_pJournal->closeStep(m_strName.isEmpty() ? tr("Change") : m_strName);
    const QString name = forward ? m_pJournal->redoName() : m_pJournal->undoName();
    const CMapJournal::Reach reach = forward ? m_pJournal->redo() : m_pJournal->undo();
    if (reach == CMapJournal::Reach::NOTHING) {
        m_window.statusBar()->showMessage(forward ? tr("There is nothing to make again")
                                                  : tr("There is nothing to take back"));
        return;
    }
    m_window.statusBar()->showMessage((forward ? tr("Made again: %1") : tr("Taken back: %1")).arg(name));
    showSteps();
    emit mapChanged(reach);
}

void CEditMenu::cancelStroke() {
    if (m_pJournal == nullptr) {
        return;
    }
    m_view.stopStroke();
    if (m_pJournal->closeStep(m_strName)) {
        const CMapJournal::Reach reach = m_pJournal->undo();
        m_pJournal->forgetUndone();
        m_window.statusBar()->showMessage(tr("The stroke was taken back"));
        emit mapChanged(reach);
    }
    showSteps();
}

void CEditMenu::showSteps() {
    const bool undo = m_pJournal != nullptr && m_pJournal->canUndo();
    const bool redo = m_pJournal != nullptr && m_pJournal->canRedo();
    m_pUndo->setText(undo ? tr("&Undo %1").arg(m_pJournal->undoName()) : tr("&Undo"));
    m_pRedo->setText(redo ? tr("&Redo %1").arg(m_pJournal->redoName()) : tr("&Redo"));
}
