#include "sandbox/keys/tool_menu.h"

#include "sandbox/keys/map_panel.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace {

constexpr int SELECT_ALL = 1473;
constexpr int DESELECT = 1474;

} // namespace

CToolMenu::CToolMenu(QMainWindow& window, std::function<void()> done)
    : QObject(&window), m_pMenu(window.menuBar()->addMenu(tr("&Tools"))), m_done(std::move(done)) {
    for (const MapTool& tool : mapTools()) {
        m_tools.push_back(add(tr(tool.terrain.name), QStringLiteral("tool-%1").arg(tool.control), tool.key,
                              [&tool] { CMapPanel::press(tool.control); }));
    }
    m_pMenu->addSeparator();
    add(tr("Terrain or Details"), "turn-tabs", QKeySequence("Ctrl+Tab"), &CMapPanel::turnTabs);
    add(tr("Smaller Brush"), "smaller-brush", Qt::Key_BracketLeft, [] { CMapPanel::stepBrush(-1); });
    add(tr("Larger Brush"), "larger-brush", Qt::Key_BracketRight, [] { CMapPanel::stepBrush(1); });
    add(tr("Weaker"), "weaker", Qt::Key_Minus, [] { CMapPanel::stepStrength(-1); });
    add(tr("Stronger"), "stronger", Qt::Key_Equal, [] { CMapPanel::stepStrength(1); });
    m_pMenu->addSeparator();
    add(tr("Select All"), "select-all", QKeySequence("Ctrl+A"), [] { CMapPanel::pressUnfolded(SELECT_ALL); });
    add(tr("De-select"), "deselect", QKeySequence("Ctrl+D"), [] { CMapPanel::pressUnfolded(DESELECT); });
}

QAction* CToolMenu::add(const QString& text, const QString& name, const QKeySequence& key,
                        std::function<void()> press) {
    QAction* const entry = m_pMenu->addAction(text, key, this, [this, press = std::move(press)] {
        press();
        m_done();
    });
    entry->setObjectName(name);
    return entry;
}

void CToolMenu::follow() {
    const bool open = CMapPanel::isOpen();
    if (std::exchange(m_bOpen, open) != open) {
        for (QAction* const entry : m_pMenu->actions()) {
            entry->setEnabled(open);
        }
    }
    const bool details = CMapPanel::showsDetails();
    if (std::exchange(m_bDetails, details) != details) {
        for (std::size_t i = 0; i < m_tools.size(); ++i) {
            const char* const name = CMapPanel::textOf(mapTools()[i]).name;
            m_tools[i]->setText(tr(name));
            m_tools[i]->setVisible(*name != '\0');
        }
    }
}
