#include "controls/texture_list_dlg.h"

#include "engine/memory/engine_directories.h"
#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

namespace {

using testing::ElementsAre;

/// The Texture List on a scene of two textures, "grass" and "rock", of which "grass" has an image: opaque, 8
/// by 8, one colour.
class TextureListTest : public testing::Test {
protected:
    TextureListTest() {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(GRASS_COLOUR);
        image.save(m_directory.filePath("grass.png"));
        CEngineDirectories::setDirectories({m_directory.path().toStdString()});
        m_pGrass->setSize(qxTextureSize256);
        m_pGrass->setPixelFormat(qxPixelFormatRgba4444);
        m_pRock->setSize(qxTextureSize16);
        m_pRock->setPixelFormat(qxPixelFormat8);
    }
    ~TextureListTest() override { CEngineDirectories::setDirectories({}); }

    qxCTexture* addTexture(const char* name, const char* fileName) {
        qxCTexture* const texture = m_scene.createTexture();
        texture->name.setString(name);
        texture->setFilename(fileName);
        m_scene.addTexture(texture);
        return texture;
    }
    static void click(const QWidget* list, int id) { ui::click(ui::control(*list, id)); }
    static void choose(const QWidget* list, const QString& entry) {
        const auto& entries = ui::control<QListWidget>(*list, IDC_TEXTURES);
        const QList<QListWidgetItem*> found = entries.findItems(entry, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << entry.toStdString();
        ui::click(*entries.viewport(), entries.visualItemRect(found.front()).center());
    }
    static QString selectedEntry(const QWidget* list) {
        const QListWidgetItem* const current = ui::control<QListWidget>(*list, IDC_TEXTURES).currentItem();
        return current != nullptr && current->isSelected() ? current->text() : "(none)";
    }

    struct Outcome {
        INT_PTR result;
        qxCTexture* selected;
    };

    /// Open the list with `current` chosen and let the user take these steps.
    Outcome run(qxCTexture* current, std::vector<CModalSteps::Step> steps) {
        return run(m_scene, current, std::move(steps));
    }

    static Outcome run(qxCScene& scene, qxCTexture* current, std::vector<CModalSteps::Step> steps) {
        CTextureListDlg list(&scene, current, nullptr);
        const CModalSteps user(std::move(steps));
        const INT_PTR result = list.DoModal();
        EXPECT_TRUE(user.areDone());
        return {result, list.getSelectedTexture()};
    }

    static void pick(const QWidget* list, int comboId, const QString& entry) {
        auto& box = ui::control<QComboBox>(*list, comboId);
        box.setFocus();
        while (box.currentText() != entry) {
            const int before = box.currentIndex();
            QTest::keyClick(&box, box.findText(entry) > before ? Qt::Key_Down : Qt::Key_Up);
            ASSERT_NE(box.currentIndex(), before);
        }
    }

    static QColor previewColour(const QWidget* list) {
        return ui::control(*list, IDC_TEXTURE_IMAGE).grab().toImage().pixelColor(20, 5);
    }

    const QColor GRASS_COLOUR{30, 120, 40};
    QTemporaryDir m_directory;
    CMemoryScene m_scene;
    qxCTexture* const m_pGrass = addTexture("grass", "grass.png");
    qxCTexture* const m_pRock = addTexture("rock", "rock.png");
};

TEST_F(TextureListTest, FollowsTheSelection) {
    const auto [result, selected] =
        run(m_pGrass, {[this](const QWidget* list) {
                EXPECT_EQ(selectedEntry(list), "grass");
                EXPECT_EQ(ui::control<QComboBox>(*list, IDC_TEXTURE_FORMAT).currentText(), "RGBA 4444");
                EXPECT_EQ(ui::control<QComboBox>(*list, IDC_TEXTURE_FORMAT).count(), 8);
                pick(list, IDC_TEXTURE_FORMAT, "Grey+Alpha");
                choose(list, "rock");
                EXPECT_EQ(ui::control<QComboBox>(*list, IDC_TEXTURE_FORMAT).currentIndex(), -1);
                EXPECT_EQ(ui::control<QComboBox>(*list, IDC_TEXTURE_SIZE).currentText(), "16x16");
                choose(list, "-NONE-");
                EXPECT_FALSE(ui::control(*list, IDC_TEXTURE_FORMAT).isEnabled());
                EXPECT_FALSE(ui::control(*list, IDC_TEXTURE_SIZE).isEnabled());
                EXPECT_EQ(previewColour(list), QColor(Qt::black));
                choose(list, "grass");
                EXPECT_TRUE(ui::control(*list, IDC_TEXTURE_FORMAT).isEnabled());
                EXPECT_TRUE(ui::control(*list, IDC_TEXTURE_SIZE).isEnabled());
                EXPECT_EQ(previewColour(list), GRASS_COLOUR);
                choose(list, "-NONE-");
                click(list, IDOK);
            }});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(selected, nullptr);
    EXPECT_EQ(m_pGrass->getPixelFormat(), qxPixelFormatGreyAlpha) << "at once, whatever ends the list";
}

TEST_F(TextureListTest, ATypedSizeIsNotReadAndEnterMovesOn) {
    m_pRock->setSize(qxTextureSize256);
    const auto outcome = run(m_pGrass, {[](const QWidget* list) {
                                 const auto& sizes = ui::control<QComboBox>(*list, IDC_TEXTURE_SIZE);
                                 ui::type(*sizes.lineEdit(), "64x64");
                                 ui::press(Qt::Key_Return);
                                 EXPECT_TRUE(list->isVisible());
                                 EXPECT_TRUE(ui::control(*list, IDC_IMPORT_TEXTURE).hasFocus());
                                 choose(list, "rock");
                                 choose(list, "grass");
                                 EXPECT_EQ(sizes.currentText(), "256x256");
                                 click(list, IDOK);
                             }});
    EXPECT_EQ(outcome.result, IDOK);
    EXPECT_EQ(m_pGrass->getSize(), qxTextureSize256);
}

TEST_F(TextureListTest, WhenItsPanelIsClosedItEndsAndLeavesTheSceneAlone) {
    CTextureListDlg list(&m_scene, m_pGrass, nullptr);
    const CModalSteps user({[&](const QWidget* window) {
        list.abandon();
        choose(window, "rock");
        pick(window, IDC_TEXTURE_SIZE, "1x1");
    }});
    EXPECT_EQ(list.DoModal(), IDCANCEL);
    EXPECT_EQ(list.getSelectedTexture(), nullptr);
    EXPECT_EQ(m_pGrass->getSize(), qxTextureSize256);
}

/// Import from a directory of files that are only named, as the import reads none of them.
class TextureImportTest : public TextureListTest {
protected:
    TextureImportTest() { g_strTextureDir = m_directory.path().toUtf8().constData(); }
    ~TextureImportTest() override { g_strTextureDir.Empty(); }

    void makeFiles(const QStringList& names) {
        for (const QString& name : names) {
            QFile file(m_directory.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    /// Choose these files in the file dialog.
    static CModalSteps::Step chooseFiles(const QStringList& names) {
        return [names](QWidget* shown) {
            auto* const dialog = qobject_cast<QFileDialog*>(shown);
            ASSERT_NE(dialog, nullptr);
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText('"' + names.join("\" \"") + '"');
            QMetaObject::invokeMethod(dialog, "accept");
        };
    }

    struct Imported {
        std::string name, fileName;
        friend bool operator==(const Imported&, const Imported&) = default;
        friend void PrintTo(const Imported& imported, std::ostream* out) {
            *out << imported.name << " of " << imported.fileName;
        }
    };

    /// What the scene has beyond its first two textures.
    std::vector<Imported> imported() const {
        std::vector<Imported> found;
        for (int i = 2; i < m_scene.getNumTextures(); ++i) {
            found.push_back({m_scene.getTexture(i)->name.getString(), m_scene.getTexture(i)->getFilename()});
        }
        return found;
    }
};

TEST_F(TextureImportTest, NamesAreCutAtTheFirstFullStopAndLongOnesRefused) {
    makeFiles({"my.texture.tga", "abcdefghijklm.tga", "abcdefghijkl.tga"});
    const auto [result, selected] =
        run(m_pGrass, {[&](QWidget* window) {
                           click(window, IDC_IMPORT_TEXTURE);
                           EXPECT_TRUE(ui::waitUntil([&] { return window->isActiveWindow(); }))
                               << "has the keyboard again, one dialog after the other";
                           EXPECT_EQ(selectedEntry(window), "abcdefghijkl");
                           click(window, IDOK);
                       },
                       chooseFiles({"my.texture.tga", "abcdefghijklm.tga", "abcdefghijkl.tga"}),
                       [](QWidget* shown) {
                           auto* const box = qobject_cast<QMessageBox*>(shown);
                           ASSERT_NE(box, nullptr);
                           EXPECT_EQ(box->text(), "Name greater than 12 characters (f***ing artists!) ");
                           EXPECT_EQ(box->buttons().size(), 1);
                           QTest::keyClick(box, Qt::Key_Return);
                       }});
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(imported(),
                ElementsAre(Imported{"my", "my.texture.tga"}, Imported{"abcdefghijkl", "abcdefghijkl.tga"}));
    ASSERT_EQ(m_scene.getNumTextures(), 4);
    EXPECT_EQ(selected, m_scene.getTexture(3));
}

// A name is as long as its user reads it, whatever bytes it takes.
TEST_F(TextureImportTest, LettersBeyondAsciiCountOnce) {
    makeFiles({QString::fromUtf8("wüstenböden1.tga")});
    run(nullptr, {[](QWidget* window) {
                      click(window, IDC_IMPORT_TEXTURE);
                      click(window, IDCANCEL);
                  },
                  chooseFiles({QString::fromUtf8("wüstenböden1.tga")})});
    EXPECT_THAT(imported(), ElementsAre(Imported{"wüstenböden1", "wüstenböden1.tga"}));
}

/// Has no memory for a texture, and counts one that it does not have.
class CBarrenScene : public qxCScene {
public:
    qxCTexture* createTexture() override { return nullptr; }
    void addTexture(qxCTexture* /*texture*/) override { ADD_FAILURE() << "there was none to add"; }
    int getNumTextures() const override { return 1; }
    qxCTexture* getTexture(int /*index*/) const override { return nullptr; }
    qxFogMode getFogMode() const override { return qxFogModeOff; }
    void setFogMode(qxFogMode /*mode*/) override {}
};

TEST_F(TextureImportTest, ASceneWithoutRoomKeepsWhatWasChosen) {
    makeFiles({"moss.tga"});
    CBarrenScene barren;
    const auto [result, selected] = run(barren, m_pRock,
                                        {[](QWidget* window) {
                                             click(window, IDC_IMPORT_TEXTURE);
                                             click(window, IDOK);
                                         },
                                         chooseFiles({"moss.tga"})});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(selected, m_pRock);
}

} // namespace
