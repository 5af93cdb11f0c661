#include "controls/surface_texture_fixture.h"

#include "engine/memory/engine_directories.h"
#include "resources/resource_ids.h"

#include <QImage>

namespace {

qxCTexture* addTexture(CMemoryScene& scene, const char* name, const char* fileName) {
    qxCTexture* const texture = scene.createTexture();
    texture->name.setString(name);
    texture->setFilename(fileName);
    scene.addTexture(texture);
    return texture;
}

} // namespace

TextureTest::TextureTest()
    : m_pGrass(addTexture(m_scene, "grass", "grass.png")), m_pRock(addTexture(m_scene, "rock", "rock.png")) {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(grassColour());
    image.save(m_directory.filePath("grass.png"));
    CEngineDirectories::setDirectories({m_directory.path().toStdString()});
    m_pGrass->setSize(qxTextureSize256);
    m_pGrass->setPixelFormat(qxPixelFormatRgba4444);
    m_pRock->setSize(qxTextureSize16);
    m_pRock->setPixelFormat(qxPixelFormat8);
}

TextureTest::~TextureTest() {
    CEngineDirectories::setDirectories({});
}

QPoint TextureTest::positionOf(const QListWidget& entries, const QString& entry) {
    const QList<QListWidgetItem*> found = entries.findItems(entry, Qt::MatchExactly);
    if (found.size() != 1) {
        throw std::runtime_error("the list does not have the entry once: " + entry.toStdString());
    }
    return entries.visualItemRect(found.front()).center();
}

void TextureTest::choose(const QWidget* list, const QString& entry) {
    const auto& entries = ui::control<QListWidget>(*list, IDC_TEXTURES);
    ui::click(*entries.viewport(), positionOf(entries, entry));
}

QString TextureTest::selectedEntry(const QWidget* list) {
    const QList<QListWidgetItem*> selected = ui::control<QListWidget>(*list, IDC_TEXTURES).selectedItems();
    return selected.size() == 1 ? selected.front()->text() : "(not one)";
}
