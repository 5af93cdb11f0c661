#include "sandbox/app/main_window.h"

#include "host/veskutil.h"
#include "sandbox/app/animation_names.h"

#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <algorithm>

namespace {

/// The map editor's panel opens over the middle of its host, where the ground is. A floating one goes to the
/// view's left edge, where it is out of the way.
constexpr QPoint FIRST_PANEL_POSITION(2, 2);

constexpr const char* DOCKED = "panels/mapEditorDocked";

HWND handleOf(const QWidget& widget) {
    return reinterpret_cast<HWND>(widget.winId());
}

} // namespace

EditorKind CMainWindow::mapEditorKind() {
    return {tr("&Map Editor"),
            "map-editor",
            Qt::Key_M,
            QStyle::SP_FileDialogDetailedView,
            "dialog-212",
            vuIsEditorActive,
            [this] { openMapEditor(); },
            vuDestroyEditor,
            [this](const QWidget& panel) { return placeForMapPanel(panel); },
            [this](bool open) {
                if (!open) {
                    clearPointing();
                    sessionmemory::keepHand(m_hand);
                }
                m_pPanelFocus->giveBack(); // the panel took the keyboard, and nobody is about to type into it
            }};
}

EditorKind CMainWindow::movieEditorKind() {
    return {tr("M&ovie Editor"),
            "movie-editor",
            Qt::Key_T,
            QStyle::SP_MediaPlay,
            "dialog-2005",
            vuIsMovieEditorActive,
            [this] { vuCreateMovieEditor(handleOf(*this), &m_document.film().movie(), true); },
            vuDestroyMovieEditor,
            [this](const QWidget& panel) { return placeForMoviePanel(panel); },
            [this](bool open) { followMovieEditor(open); }};
}

void CMainWindow::openMapEditor() {
    const QByteArray folder = m_document.textureFolder().toUtf8();
    vuCreateEditor(handleOf(*this), &m_document.map(), CString(folder.constData()), nullptr, true, nullptr);
    sessionmemory::putOnPanel(m_hand); // of the session before, or of the map before
}

void CMainWindow::clearPointing() {
    m_document.map().clearEditCursors();
    m_document.map().clearDetailHighlights();
}

void CMainWindow::followMovieEditor(bool open) {
    CFilm& film = m_document.film();
    film.selectViewCamera(); // a film that is not edited is not looked through
    m_filmPlayer.setFilm(open ? &film : nullptr);
    m_pView->setFilm(open ? &film : nullptr);
    m_pStrip->setFilm(open ? &film : nullptr);
    QLineEdit* const field = open ? animationField(*m_pMovieEditor->panel()) : nullptr;
    if (field != nullptr && !film.figures().empty()) {
        QStringList names;
        for (const FilmFigure& figure : film.figures()) {
            names += figure.animation;
        }
        new CAnimationNames(*field, names); // the field's
    }
    m_pPanelFocus->giveBack();
}

void CMainWindow::refreshMoviePanel() {
    // The end of a move that there was not: the panel records nothing and shows the film anew.
    vuMovieCameraAltered(nullptr, true);
    m_pView->noticeChanges();
}

QPoint CMainWindow::placeForMoviePanel(const QWidget& panel) const {
    const QSize size = panel.frameGeometry().size();
    const QRect window = frameGeometry();
    const QRect available = screen()->availableGeometry();
    if (window.bottom() + size.height() < available.bottom()) {
        return {std::clamp(window.right() - size.width(), available.left(),
                           std::max(available.left(), window.left())),
                window.bottom() + 1};
    }
    const QRect middle(centralWidget()->mapToGlobal(QPoint()), centralWidget()->size());
    const int lowest = std::min(middle.bottom(), available.bottom());
    const int left = m_pMapEditor->isDocked() ? middle.left() : middle.right() - size.width() + 1;
    return {left, lowest - size.height() + 1};
}

QPoint CMainWindow::placeForMapPanel(const QWidget& panel) const {
    const QRect middle(centralWidget()->mapToGlobal(QPoint()), centralWidget()->size());
    const QSize size = panel.frameGeometry().size();
    const QPoint place = m_pMapEditor->isDocked() ? QPoint(middle.right() - size.width() + 1, middle.top())
                                                  : middle.topLeft() + FIRST_PANEL_POSITION;
    const QRect available = screen()->availableGeometry();
    // On a low screen its foot is worth more than the end of the tool bar.
    const int lowest = std::max(available.top(), available.bottom() - size.height() + 1);
    return {place.x(), std::min(place.y(), lowest)};
}

bool CMainWindow::wasMapEditorDocked() {
    return QSettings().value(DOCKED, true).toBool();
}

void CMainWindow::dockMapEditor(bool docked) {
    m_pMapEditor->setDocked(docked);
    QSettings().setValue(DOCKED, docked);
    makeRoom();
}

void CMainWindow::makeRoom() {
    const QWidget* const panel = m_pMovieEditor->isOpen() ? m_pMovieEditor->panel() : nullptr;
    const QRect whole(centralWidget()->mapToGlobal(QPoint()), centralWidget()->size());
    const QRect middle = whole & screen()->availableGeometry();
    int room = 0;
    if (panel != nullptr && panel->isVisible()) {
        const QRect covered = middle & panel->frameGeometry();
        // A panel that is wide and stands at the bottom takes that from the view; any other floats over it.
        if (covered.width() * 2 > middle.width() && covered.top() > middle.center().y() &&
            middle.bottom() - covered.bottom() < covered.height() / 2) {
            const bool framed = panel->frameGeometry() != panel->geometry();
            const int frame = framed ? 0 : style()->pixelMetric(QStyle::PM_TitleBarHeight); // is on its way
            room = whole.bottom() - covered.top() + frame + 1;
        }
    }
    const QWidget* const mapPanel =
        m_pMapEditor->isOpen() && m_pMapEditor->isDocked() ? m_pMapEditor->panel() : nullptr;
    const QMargins wanted(0, 0, mapPanel != nullptr ? mapPanel->frameGeometry().width() : 0, room);
    QLayout& layout = *centralWidget()->layout();
    if (layout.contentsMargins() != wanted) {
        layout.setContentsMargins(wanted);
    }
}
