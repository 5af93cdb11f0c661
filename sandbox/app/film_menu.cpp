#include "sandbox/app/film_menu.h"

#include "sandbox/app/places_dialog.h"

#include <QAction>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <utility>

namespace {

constexpr double SLOWEST_RATE = 1.0; // frames a second
constexpr double FASTEST_RATE = 1000.0;

} // namespace

CFilmMenu::CFilmMenu(QMainWindow& window, std::function<CFilm&()> film)
    : QObject(&window), m_window(window), m_film(std::move(film)) {
    QMenu* menu = window.menuBar()->addMenu(tr("Fi&lm"));
    const auto add = [&](const QString& text, const char* name, const QKeySequence& keys,
                         void (CFilmMenu::*handler)()) {
        menu->addAction(text, keys, this, handler)->setObjectName(name);
    };
    add(tr("Set &Place..."), "set-place", Qt::Key_P, &CFilmMenu::setPlace);
    add(tr("P&laces..."), "places", {}, &CFilmMenu::listPlaces);
    menu->addSeparator();
    add(tr("Add &Camera..."), "add-camera", {}, &CFilmMenu::addCamera);
    add(tr("&Frames a Second..."), "step-rate", {}, &CFilmMenu::setStepRate);
}

void CFilmMenu::tell(const QString& text) {
    m_window.statusBar()->showMessage(text);
}

QString CFilmMenu::askName(const QString& title, const QString& kind) {
    QString name = m_film().freeName(kind);
    while (true) {
        bool accepted = false;
        name = QInputDialog::getText(&m_window, title, tr("Name:"), QLineEdit::Normal, name, &accepted);
        if (!accepted) {
            return {};
        }
        const QString refusal = m_film().whyNoName(name);
        if (refusal.isEmpty()) {
            return name;
        }
        QMessageBox::warning(&m_window, title, refusal);
    }
}

void CFilmMenu::setPlace() {
    if (!m_pointed) {
        tell(tr("Point at the ground first, then press P"));
        return;
    }
    const qxCVector3d point = *m_pointed; // where it was when the person asked
    const QString name = askName(tr("Set Place"), tr("Place"));
    if (!name.isEmpty()) {
        m_film().addPlace(name, point);
        tell(tr("%1 can be a camera's target now").arg(name));
        emit changed();
    }
}

void CFilmMenu::listPlaces() {
    CPlacesDialog(m_window, m_film()).exec();
    emit changed();
}

void CFilmMenu::addCamera() {
    const QString name = askName(tr("Add Camera"), tr("Camera"));
    if (!name.isEmpty()) {
        m_film().movie().addCamera(name.toUtf8().constData());
        emit changed();
    }
}

void CFilmMenu::setStepRate() {
    bool accepted = false;
    const double rate = QInputDialog::getDouble(&m_window, tr("Frames a Second"), tr("Frames a second:"),
                                                static_cast<double>(m_film().movie().getStepRate()),
                                                SLOWEST_RATE, FASTEST_RATE, 2, &accepted);
    if (accepted) {
        m_film().movie().setStepRate(static_cast<float>(rate));
        emit changed();
    }
}
