#include "host/ui_events/event_stage.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "host/veskutil.h"
#include "platform/cstring.h"
#include "resources/resource_ids.h"
#include "sandbox/hands/dialogs.h"
#include "support/tga_bytes.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace {

const QString VIEW_NAME = QStringLiteral("view");

void addTexture(CMemoryScene& scene, const char* name, const char* fileName) {
    qxCTexture* const texture = scene.createTexture();
    texture->name.setString(name);
    texture->setFilename(fileName);
    scene.addTexture(texture);
}

/// In memory where the machine has such a place: imported textures are synced to the disk before a click
/// returns, and a disk that others keep busy would count as a click that hangs.
QString directoryTemplate() {
    const QFileInfo memory("/dev/shm");
    const bool usable = memory.isDir() && memory.isWritable();
    return (usable ? memory.filePath() : QDir::tempPath()) + "/vesk-events-XXXXXX";
}

} // namespace

CEventStage::CEventStage(CEventDice& dice, EventTally& tally)
    : m_dice(dice), m_tally(tally), m_directory(directoryTemplate()), m_movie(dice) {
    // Qt's own dialogs keep their settings in the user's directory, and show it.
    const QString settings = m_directory.filePath(".settings");
    QDir().mkdir(settings);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings);
    qputenv("HOME", m_directory.path().toUtf8());
    writeFiles();
    CEngineDirectories::setDirectories({m_directory.path().toStdString()});
    makeWorld();
    makeWindow();
}

CEventStage::~CEventStage() {
    end();
    CEngineDirectories::setDirectories({});
}

void CEventStage::write(const QString& name, const QByteArray& content) {
    QFile file(m_directory.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw std::runtime_error("Failed to write " + file.fileName().toStdString());
    }
    m_files[name] = content;
}

/// A true-colour TGA file of a gradient, of which the last `missing` bytes are cut off.
void CEventStage::writeTga(const QString& name, int width, int height, int bits, int missing) {
    std::string pixels(static_cast<std::size_t>(width * height * (bits / 8)), ' ');
    std::ranges::generate(pixels, [i = 0]() mutable { return static_cast<char>(i++ % 251); });
    QByteArray bytes = QByteArray::fromStdString(makeTga(width, height, bits, pixels));
    bytes.chop(missing);
    write(name, bytes);
}

void CEventStage::writeFiles() {
    writeTga("grass.tga", 64, 64, 24);
    writeTga("rock.tga", 64, 64, 32);
    writeTga("water.tga", 32, 16, 24);
    writeTga("stone.tga", 256, 256, 24);
    writeTga("moss.tga", 300, 7, 32);
    writeTga("my.texture.tga", 1, 1, 24);
    writeTga("twelveletter.tga", 8, 8, 24);
    writeTga("muchtoolonganame.tga", 8, 8, 24);
    writeTga("wüste.tga", 16, 16, 32);
    writeTga("cut.tga", 64, 64, 24, 1000);
    writeTga("headonly.tga", 64, 64, 24, 64 * 64 * 3);
    write("empty.tga", {});
    write("noise.tga", QByteArray(400, '\xAB'));
    write("notes.txt", "not a picture");
    QDir(m_directory.path()).mkdir("more");
    writeTga("more/sand.tga", 8, 8, 24);
}

bool CEventStage::isDirectoryIntact() const {
    constexpr auto FILES = QDir::Files | QDir::Hidden;
    const QDir directory(m_directory.path());
    const qsizetype found =
        directory.entryList(FILES).size() + QDir(directory.filePath("more")).entryList(FILES).size();
    bool intact = found == m_files.size() &&
                  directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot) == QStringList("more");
    for (auto file = m_files.begin(); file != m_files.end(); ++file) {
        QFile onDisk(directory.filePath(file.key()));
        intact = intact && onDisk.open(QIODevice::ReadOnly) && onDisk.readAll() == file.value();
    }
    return intact;
}

void CEventStage::makeWorld() {
    m_pScene = std::make_unique<CMemoryScene>();
    addTexture(*m_pScene, "grass", "grass.tga");
    addTexture(*m_pScene, "rock", "rock.tga");
    addTexture(*m_pScene, "water", "water.tga");
    addTexture(*m_pScene, "lost", "no_such_file.tga");
    m_nOwnTextures = m_pScene->getNumTextures();
    constexpr std::array<int, 4> SIZES = {1, 16, 64, 200};
    m_pMap = std::make_unique<CMemoryMap>(m_dice.of(SIZES), m_pScene.get());
    m_pMap->waterLevel = static_cast<float>(m_dice.below(50));
    m_pMap->setTexture(qxMapLayerSmooth, m_pScene->getTexture(0));
    m_pMap->setTexture(qxMapLayerRough, m_pScene->getTexture(1));
    m_pMap->setTexture(qxMapLayerWater, m_pScene->getTexture(2));
    addDefinitions();
    addDetails();
}

void CEventStage::addDefinitions() {
    for (int i = m_dice.below(4); i > 0; --i) {
        qxCMapMultiTexture& definition = *m_pMap->addMultiTexture();
        definition.tint1 = {m_dice.below(256), m_dice.below(256), m_dice.below(256), 255};
        definition.tint2 = {m_dice.below(256), m_dice.below(256), m_dice.below(256), 255};
        definition.blend = static_cast<float>(m_dice.below(11)) * 0.1F;
        definition.variation = static_cast<float>(m_dice.below(11)) * 0.1F;
    }
}

void CEventStage::addDetails() {
    for (int i = 0; i < 20; ++i) {
        const auto x = static_cast<float>(m_dice.below(m_pMap->getGridDim()));
        const auto z = static_cast<float>(m_dice.below(m_pMap->getGridDim()));
        m_pMap->addDetail(qxDetailTypePoint, m_pScene->getTexture(2), {x + 0.5F, 0.0F, z + 0.5F}, 0.5F, 0.0F,
                          1.0F);
    }
}

void CEventStage::makeWindow() {
    m_pWindow = std::make_unique<QWidget>();
    m_pWindow->setObjectName("host");
    m_pWindow->resize(400, 300);
    auto* const view = new QWidget(m_pWindow.get());
    view->setObjectName(VIEW_NAME);
    view->setGeometry(0, 40, 400, 260);
    m_pWindow->show();
}

/// What a host has to offer as a parent: its window, the view in it, nothing.
HWND CEventStage::anyHostHandle() {
    const QWidget* const view = m_pWindow->findChild<QWidget*>(VIEW_NAME);
    const std::array<const QWidget*, 3> parents = {m_pWindow.get(), view, nullptr};
    const QWidget* const parent = m_dice.of(parents);
    return parent != nullptr ? reinterpret_cast<HWND>(parent->winId()) : nullptr;
}

void CEventStage::openEditor() {
    const bool wasOpen = vuIsEditorActive();
    const bool full = !m_dice.oneIn(6);
    vuCreateEditor(anyHostHandle(), m_pMap.get(), m_directory.path().toUtf8().constData(), nullptr, full,
                   nullptr);
    m_bOpen = vuIsEditorActive();
    if (m_bOpen && !wasOpen) {
        m_invariants.begin(*m_pMap, full);
    }
    m_tally.opened += m_bOpen && !wasOpen ? 1 : 0;
}

void CEventStage::openMovieEditor() {
    const bool wasOpen = vuIsMovieEditorActive();
    m_movie.open(anyHostHandle());
    m_tally.openedMovies += vuIsMovieEditorActive() && !wasOpen ? 1 : 0;
}

void CEventStage::destroyEditor() {
    vuDestroyMovieEditor();
    vuDestroyEditor();
    m_bOpen = false;
}

void CEventStage::countImports() {
    m_tally.imported += m_pScene->getNumTextures() - m_nOwnTextures;
    m_nOwnTextures = m_pScene->getNumTextures();
}

void CEventStage::replaceWorld() {
    destroyEditor();
    vuDestroySettings();
    countImports();
    m_pMap.reset();
    m_movie.replaceMovie();
    makeWorld();
}

void CEventStage::replaceWindow() {
    // A box about a refused value comes up in the middle of a change of the focus. Qt does not survive that
    // the windows concerned are deleted in there, whoever made them: no host can do it.
    for (const QWidget* shown : QApplication::topLevelWidgets()) {
        if (shown->isVisible() && qobject_cast<const QMessageBox*>(shown) != nullptr) {
            return;
        }
    }
    m_pWindow.reset();
    m_bOpen = vuIsEditorActive(); // a panel of this window went with it
    makeWindow();
}

/// Nearly always near the map, sometimes as far off as an int goes.
int CEventStage::coordinate() {
    if (m_dice.oneIn(50)) {
        return m_dice.oneIn(2) ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return m_dice.between(-6, m_pMap->getGridDim() + 6);
}

void CEventStage::stroke() {
    switch (m_dice.below(4)) {
    case 0:
        vuStartEditing(coordinate(), coordinate(), m_dice.between(-1, 6), m_dice.between(-1, 4));
        return;
    case 1:
        vuStopEditing();
        if (const QWidget* const panel = shownDialog(IDD_MAP_EDITOR)) {
            EXPECT_TRUE(m_invariants.checkHistory(*panel)) << m_invariants.getBroken();
        }
        return;
    default:
        vuUpdateEditing(coordinate(), coordinate(), 0, 0, 0, m_dice.between(-40, 40));
    }
}

void CEventStage::editMap() {
    m_invariants.noteMapEdit();
    switch (m_dice.below(5)) {
    case 0:
        return m_pMap->removeMultiTexture(m_dice.below(4));
    case 1:
        return addDefinitions();
    case 2:
        return m_pMap->setTexture(qxMapLayerRough, m_dice.oneIn(2) ? nullptr : m_pScene->getTexture(1));
    case 3:
        return m_pMap->setTextureTiling(m_dice.between(1, 256));
    default:
        vuDestroySettings(); // may come at any time, and empties the history
        m_invariants.noteHistoryCleared();
    }
}

void CEventStage::hover() {
    vuUpdateCursor(coordinate(), coordinate(), m_dice.between(-1, 6), m_dice.between(-1, 4));
}

void CEventStage::observe() {
    if (m_bOpen && !vuIsEditorActive()) {
        ++m_tally.closedByUser;
        m_bOpen = false;
    }
}

bool CEventStage::checkPanel() {
    QWidget* const panel = shownDialog(IDD_MAP_EDITOR);
    if (panel == nullptr || !vuIsEditorActive()) {
        return true;
    }
    constexpr int TURNS_PER_RETURN = 400;
    const bool returns = m_dice.oneIn(TURNS_PER_RETURN) && !vuIsEditingInProgress();
    return m_invariants.check(*panel, *m_pMap) &&
           (!returns || m_invariants.checkUndoToTheEnd(*panel, *m_pMap));
}

void CEventStage::end() {
    destroyEditor();
    vuDestroySettings();
    if (m_pScene != nullptr) {
        countImports();
    }
    m_movie.end();
    m_pMap.reset();
    m_pScene.reset();
    m_pWindow.reset();
}
