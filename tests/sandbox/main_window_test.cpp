#include "sandbox/app/main_window.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "host/veskutil.h"
#include "resources/resource_ids.h"
#include "sandbox/core/long_work.h"
#include "sandbox/files/heightmap_file.h"
#include "sandbox/progress/progress_window.h"
#include "sandbox/project_contents.h"
#include "sandbox/window_session.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <QAction>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// Answer a question or a message: see its text, press a button by its caption.
CModalSteps::Step answer(const QString& text, const QString& button) {
    return [=](QWidget* window) {
        auto* box = qobject_cast<QMessageBox*>(window);
        ASSERT_NE(box, nullptr) << window->windowTitle().toStdString();
        EXPECT_EQ(box->text().toStdString(), text.toStdString());
        for (QAbstractButton* candidate : box->buttons()) {
            if (candidate->text().remove('&') == button) {
                ui::click(*candidate);
                return;
            }
        }
        ADD_FAILURE() << "no button " << button.toStdString();
    };
}

/// Name a file in a file dialog and confirm.
CModalSteps::Step chooseFile(const QString& path) {
    return [=](QWidget* window) {
        auto* name = window->findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr) << window->windowTitle().toStdString();
        ui::type(*name, path);
        ui::press(Qt::Key_Return);
    };
}

/// What a window manager does and a bare virtual display does not: a window that opens gets the keyboard.
class CWindowManager : public QObject {
public:
    CWindowManager() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() == QEvent::Show && widget != nullptr && widget->isWindow() &&
            widget->windowType() != Qt::Popup && widget->windowType() != Qt::ToolTip) {
            QTimer::singleShot(0, widget, [widget] { widget->activateWindow(); });
        }
        return false;
    }
};

/// A window on a heightmap of slopes and a valley, with folders and settings of its own.
class MainWindow : public testing::Test {
protected:
    static void SetUpTestSuite() {
        QSurfaceFormat format;
        format.setVersion(3, 3);
        format.setProfile(QSurfaceFormat::CoreProfile);
        QSurfaceFormat::setDefaultFormat(format);
        QCoreApplication::setOrganizationName("veskutil");
        QCoreApplication::setApplicationName("sandbox_window_test");
    }

    MainWindow() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_scratch.filePath("settings"));
        qputenv("XDG_DATA_HOME", m_scratch.filePath("data").toUtf8());
        std::vector<std::uint16_t> heights;
        for (int i = 0; i < EDGE * EDGE; ++i) {
            heights.push_back(static_cast<std::uint16_t>(100 + 10 * std::abs(i % EDGE - EDGE / 2)));
        }
        EXPECT_EQ(writeHeightmapFile(heightmap(), EDGE, heights, HeightmapBits::SIXTEEN), "");
        openWindow();
        EXPECT_EQ(m_pWindow->openMap(heightmap()), "");
    }

    ~MainWindow() override { CEngineDirectories::setDirectories({}); }

    void openWindow() {
        m_pWindow.reset(); // the toolkit serves one window at a time
        m_pWindow = std::make_unique<CMainWindow>();
        m_pWindow->resize(700, 500);
        m_pWindow->show();
        ASSERT_TRUE(ui::waitUntilActive(m_pWindow.get()));
    }

    QString heightmap() const { return m_scratch.filePath("hills.png"); }
    QString folder() const { return m_scratch.filePath("my map"); }
    CMapDocument& document() const { return m_pWindow->document(); }
    CMemoryMap& map() const { return m_pWindow->document().map(); }

    void choose(const char* action) { m_pWindow->findChild<QAction*>(action)->trigger(); }

    /// A modal conversation that `begin` starts.
    void converse(std::vector<CModalSteps::Step> steps, const std::function<void()>& begin) {
        const CModalSteps person(std::move(steps));
        begin();
        ui::settle();
        EXPECT_TRUE(person.areDone());
    }

    /// A panel counts as active as soon as the window below it is, so the keyboard is asked after.
    static void turnTo(QWidget* target) {
        target->activateWindow();
        ASSERT_TRUE(ui::waitUntil([&] { return QApplication::activeWindow() == target; }));
    }

    /// A shortcut of the window.
    void pressKey(Qt::Key key) {
        turnTo(m_pWindow.get());
        QTest::keyClick(m_pWindow.get(), key, Qt::ControlModifier);
    }

    /// The height of the point at (4, 4) as a heightmap has it.
    static int heightIn(const QString& path) { return readHeightmapFile(path).map.heights[4 * EDGE + 4]; }
    static Project savedIn(const QString& path) {
        Project project;
        EXPECT_EQ(readProject(path, project).reason.toStdString(), "");
        return project;
    }
    QString projectFile() const { return folder() + '/' + PROJECT_FILE_NAME; }

    void saveProjectAs(const QString& path) {
        converse({chooseFile(path)}, [&] { choose("save-project-as"); });
    }

    /// Work a while on all that a project keeps: with the panel, and as its tools would.
    void dressMap() {
        choose("map-editor");
        QWidget* panel = ui::dialog(IDD_MAP_EDITOR);
        ASSERT_NE(panel, nullptr);
        ui::click(ui::control(*panel, IDC_EXPAND));
        ui::click(ui::control(*panel, IDC_INSERT_DEFINITION));
        turnTo(panel);
        ui::type(ui::control(*panel, IDC_BLEND), "0.7");
        ui::press(Qt::Key_Tab);
        ui::type(ui::control(*panel, IDC_TILING), "5");
        ui::press(Qt::Key_Tab);
        map().setTexture(qxMapLayerRough, document().scene().getTexture(1));
        m_pWindow->findChild<QSpinBox*>("water-level")->setValue(130);
        map().addWater(EDGE / 2, 3);
        ui::settle();
    }

    static constexpr int EDGE = 17;
    CWindowManager m_manager;
    QTemporaryDir m_scratch;
    std::unique_ptr<CMainWindow> m_pWindow;
};

TEST_F(MainWindow, AProjectSavedFromTheMenuOpensTheSameInAnotherWindow) {
    dressMap();
    ASSERT_EQ(map().getMultiTexture(map().getNumMultiTextures() - 1)->blend, 0.7F);
    ASSERT_EQ(map().getTextureTiling(), 5);
    ASSERT_TRUE(map().getPointWater(EDGE / 2, 9));
    const QByteArray saved = contents(map(), document().scene());
    saveProjectAs(folder());
    EXPECT_FALSE(m_pWindow->isWindowModified());
    EXPECT_EQ(m_pWindow->windowTitle().toStdString(), "my map[*] - Terrain sandbox");
    EXPECT_TRUE(vuIsEditorActive()) << "saving is no reason to close the editor";

    openWindow();
    converse({chooseFile(projectFile())}, [&] { pressKey(Qt::Key_O); });
    EXPECT_EQ(contents(map(), document().scene()), saved);
    EXPECT_EQ(document().path().toStdString(), folder().toStdString());
    EXPECT_FALSE(m_pWindow->isWindowModified());
    const auto image = CEngineDirectories::resolve(map().getTexture(qxMapLayerRough)->getFilename());
    ASSERT_TRUE(image.has_value());
    EXPECT_EQ(image->parent_path().string(), (folder() + "/textures").toStdString());
}

TEST_F(MainWindow, EveryKindOfWorkCountsAsAChange) {
    saveProjectAs(folder());
    auto* detail = const_cast<qxCMapDetailRecord*>(
        map().addDetail(qxDetailTypePoint, nullptr, {3, 0, 3}, {4, 0, 3}, {3, 0, 4}, 1.0F));
    const qxCColour colour(1, 2, 3, 4);
    const std::vector<std::function<void()>> works = {
        [&] { map().setPointHeight(1, 1, 999, true); },
        [&] { map().setPointColour(0, 1, 1, colour); },
        [&] { map().setPointBlend(1, 1, 1, 12345); },
        [&] { map().addWater(EDGE / 2, 3); },
        [&] { document().setWaterLevel(222); },
        [&] { detail->point0.x = 3.5F; },
        [&] { detail->texture = document().scene().getTexture(1); },
        [&] { map().getMultiTexture(2)->variation = 0.9F; },
        [&] { map().removeMultiTexture(0); },
        [&] { map().setTexture(qxMapLayerSmooth, document().scene().getTexture(2)); },
        [&] { document().scene().getTexture(3)->setSize(qxTextureSize8); },
        [&] { document().scene().getTexture(3)->name.setString("other"); },
        [&] { map().setTextureTiling(77); },
        [&] { map().setAmbient(colour); },
        [&] { map().getTerrainDef(1)->filter[24] = 3.0F; },
        [&] { document().scene().setFogMode(qxFogModeOn); },
        [&] { map().setFlag(qxMapFlagChecker); },
        [&] { document().film().movie().getFrame(2)->setFov(12.0F); },
        [&] { document().film().movie().addSound("wind.wav"); },
        [&] { document().film().movie().flags ^= qxMovieShowHeights; },
        [&] {
            document().film().addPlace("Ford", {1, 2, 3});
        },
    };
    for (std::size_t i = 0; i < works.size(); ++i) {
        ASSERT_EQ(m_pWindow->saveProject(folder()), "");
        ASSERT_FALSE(document().isModified()) << i;
        works[i]();
        EXPECT_TRUE(document().isModified()) << i;
    }
    ASSERT_EQ(m_pWindow->saveProject(folder()), "");
    map().setCurrentMultiTexture(1);
    map().addEditCursor(1, 1, 0);
    EXPECT_FALSE(document().isModified()) << "to look around is no change";
}

TEST_F(MainWindow, UnsavedChangesAreAskedAfter) {
    saveProjectAs(folder());
    const QString question = "Save the changes to my map first?";
    map().getMultiTexture(0)->blend = 0.25F;

    converse({answer(question, "Cancel")}, [&] { EXPECT_FALSE(m_pWindow->close()); });
    EXPECT_TRUE(m_pWindow->isVisible());
    EXPECT_TRUE(m_pWindow->isWindowModified()) << "the mark in the title";
    EXPECT_EQ(map().getMultiTexture(0)->blend, 0.25F);

    converse({answer(question, "Save")}, [&] { EXPECT_TRUE(m_pWindow->close()); });
    EXPECT_EQ(savedIn(folder()).settings.definitions[0].blend, 0.25F);

    m_pWindow->show();
    map().getMultiTexture(0)->blend = 0.5F;
    converse({answer(question, "Discard")}, [&] { EXPECT_TRUE(m_pWindow->close()); });
    EXPECT_EQ(savedIn(folder()).settings.definitions[0].blend, 0.25F);
}

TEST_F(MainWindow, AHeightmapSaysWhatItCannotKeep) {
    const QString question =
        "hills.png is a heightmap, which keeps the heights alone. Its colours, textures, "
        "water, details and film are kept only in a project.";
    map().setPointHeight(4, 4, 444, true);
    map().addWater(EDGE / 2, 3);
    ui::settle();
    converse({answer(question, "Cancel")}, [&] { choose("save"); });
    EXPECT_NE(heightIn(heightmap()), 444);
    converse({answer(question, "Save Heights Only")}, [&] { pressKey(Qt::Key_S); });
    EXPECT_EQ(heightIn(heightmap()), 444);
    EXPECT_TRUE(m_pWindow->isWindowModified()) << "the water is not saved";
    map().setPointHeight(4, 4, 445, true);
    converse({}, [&] { choose("save"); }); // asked once for a map
    EXPECT_EQ(heightIn(heightmap()), 445);

    const QString copy = m_scratch.filePath("copy");
    converse({answer(question, "Save as Project..."), chooseFile(copy)},
             [&] { EXPECT_TRUE(m_pWindow->close()); });
    EXPECT_TRUE(std::ranges::equal(savedIn(copy).water, map().getWaterFlags()));
}

TEST_F(MainWindow, FailuresAreToldAndLeaveTheMapAtHand) {
    saveProjectAs(folder());
    map().setPointHeight(1, 1, 1234, true);
    // A folder in the place of the project file stops the save, whoever runs this.
    ASSERT_TRUE(QFile::remove(projectFile()));
    ASSERT_TRUE(QDir().mkpath(projectFile()));
    converse({answer(QString("Failed to save %1: it is not a file").arg(projectFile()), "OK")},
             [&] { choose("save"); });
    EXPECT_TRUE(m_pWindow->isWindowModified());
    choose("map-editor");
    const CMemoryMap* before = &map();
    const QString message =
        QString("Failed to open %1/project.json: no such file or directory").arg(projectFile());
    EXPECT_EQ(m_pWindow->openMap(projectFile()).toStdString(), message.toStdString());
    EXPECT_EQ(&map(), before);
    EXPECT_TRUE(vuIsEditorActive());
}

TEST_F(MainWindow, ANewMapIsLevelAndBelongsNowhere) {
    map().setPointHeight(4, 4, 444, true);
    const auto takeSize = [](QWidget* window) {
        auto& dialog = dynamic_cast<QInputDialog&>(*window);
        dialog.setTextValue("256");
        dialog.accept();
    };
    const QString unsaved = "Save the changes to hills.png first?";
    converse({answer(unsaved, "Cancel")}, [&] { choose("new-map"); });
    EXPECT_EQ(map().getPointHeight(4, 4), 444);
    converse({answer(unsaved, "Discard"), takeSize}, [&] { choose("new-map"); });
    EXPECT_EQ(map().getGridDim(), 256);
    EXPECT_EQ(map().getPointHeight(4, 4), map().getPointHeight(256, 256));
    EXPECT_EQ(document().path(), "");
    EXPECT_FALSE(document().isModified());
    EXPECT_EQ(heightIn(heightmap()), 100 + 10 * (EDGE / 2 - 4)) << "discarded";
}

TEST_F(MainWindow, LongWorkShowsItsProgressAndCanBeCalledOff) {
    const auto work = [] { // three seconds, if nobody minds
        const CLongWork::CPart part(CLongWork::current(), 1.0);
        for (int i = 0; i < 300 && CLongWork::reach(i / 300.0); ++i) {
            QThread::msleep(10);
        }
    };
    QString left;
    int pulses = 0;
    QTimer alive;
    QObject::connect(&alive, &QTimer::timeout, [&] {
        ++pulses;
        const QWidget* const progress = QApplication::activeModalWidget();
        if (progress != nullptr && pulses > 60 && left.isEmpty()) {
            left = progress->findChild<QLabel*>("time-left")->text();
            progress->findChild<QPushButton*>()->click();
        }
    });
    alive.start(10);
    EXPECT_FALSE(runLongWork(m_pWindow.get(), "Opening something", work));
    EXPECT_GT(pulses, 60) << "the windows live on";
    EXPECT_TRUE(left.startsWith("about ") && left.endsWith(" s left")) << left.toStdString();
    EXPECT_TRUE(runLongWork(m_pWindow.get(), "Something short", [] {}));
    EXPECT_THROW(runLongWork(m_pWindow.get(), "Too much", [] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST_F(MainWindow, WhatIsCalledOffLeavesAllAsItWas) {
    const QString other = m_scratch.filePath("other.png");
    ASSERT_EQ(
        writeHeightmapFile(other, 129, std::vector<std::uint16_t>(129 * 129, 9), HeightmapBits::SIXTEEN), "");
    ASSERT_EQ(m_pWindow->openMap(other), "");
    ASSERT_EQ(m_pWindow->saveProject(folder()), "");
    map().setPointHeight(4, 4, 444, true);
    document().setRunner([](const QString&, const std::function<void()>& work) {
        CLongWork called;
        const CLongWork::CPart whole(&called, 0.0);
        called.callOff();
        work();
        return false;
    });
    const CMemoryMap* const before = &map();
    const QStringList entries = QDir(m_scratch.path()).entryList();
    EXPECT_EQ(m_pWindow->openMap(heightmap()), CMapDocument::CALLED_OFF);
    EXPECT_EQ(m_pWindow->openMap(folder()), CMapDocument::CALLED_OFF);
    converse({}, [&] { choose("save"); }); // nothing is asked, nothing is told in a box
    EXPECT_EQ(m_pWindow->saveHeightmap(other), CMapDocument::CALLED_OFF);
    EXPECT_EQ(m_pWindow->saveProject(m_scratch.filePath("new")), CMapDocument::CALLED_OFF);
    EXPECT_TRUE(&map() == before && document().path() == folder() && document().isModified());
    EXPECT_EQ(map().getPointHeight(4, 4), 444);
    EXPECT_EQ(savedIn(folder()).heights[4 * 129 + 4], 9);
    EXPECT_EQ(readHeightmapFile(other).map.heights[0], 9);
    EXPECT_EQ(QDir(m_scratch.path()).entryList(), entries);
}

/// Work whose program ends unasked after a minute: a copy is left.
class LostWork : public MainWindow {
protected:
    LostWork() { saveProjectAs(folder()); }

    /// The copy that the minute brings is written.
    void aMinutePasses() {
        QMetaObject::invokeMethod(m_pWindow->findChild<QTimer*>("autosave"), "timeout");
        Project written;
        ASSERT_TRUE(becomesTrue([&] { return readProject(copy(), written).reason.isEmpty(); }));
    }
    void workAndCrash(int height) {
        map().setPointHeight(4, 4, height, true);
        document().film().movie().getFrame(0)->setFov(static_cast<float>(height) / 10.0F);
        aMinutePasses();
        openWindow(); // the old one goes without being asked
        ASSERT_EQ(copies(), QStringList("1"));
    }
    /// Open the project again; the question about the copy is answered with a button.
    void openAndAnswer(const QString& button) {
        converse({chooseFile(projectFile()), answer(question(), button)}, [&] { choose("open-project"); });
    }
    static QString copy() { return CAutomaticCopy::room() + "/1"; }
    static QStringList copies() {
        return QDir(CAutomaticCopy::room()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    }
    static QString question(const QString& map = "my map") {
        return QString("There is an automatic copy of %1 with changes that were never saved. Open the copy?")
            .arg(map);
    }
};

TEST_F(LostWork, IsOfferedUntilAPersonDecides) {
    workAndCrash(444);
    EXPECT_NE(savedIn(folder()).heights[4 * EDGE + 4], 444) << "the project itself is as it was saved";
    openAndAnswer("Later");
    EXPECT_TRUE(m_pWindow->close());
    EXPECT_EQ(copies(), QStringList("1")) << "put off, not thrown away";
    m_pWindow->show();
    openAndAnswer("Open Copy");
    EXPECT_EQ(map().getPointHeight(4, 4), 444);
    EXPECT_EQ(document().film().movie().getFrame(0)->fov, 44.4F);
    EXPECT_TRUE(document().hasHeightChanges() && document().hasOtherChanges());
    EXPECT_EQ(copies(), QStringList("1")) << "it is not saved yet";
    choose("save");
    EXPECT_EQ(copies(), QStringList());
    EXPECT_EQ(savedIn(folder()).heights[4 * EDGE + 4], 444);
    workAndCrash(555);
    openAndAnswer("Delete Copy");
    EXPECT_NE(map().getPointHeight(4, 4), 555);
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(LostWork, WithoutAPlaceOfItsOwnIsOfferedAtTheNextStart) {
    ASSERT_EQ(m_pWindow->openMap(QString(VESK_SAMPLES) + "/jacksboro"), "");
    workAndCrash(444);
    QString told;
    converse({answer(question("jacksboro (sample)"), "Later")}, [&] { m_pWindow->startWork(); });
    converse({[&](QWidget* box) {
                 told = dynamic_cast<QMessageBox&>(*box).informativeText();
                 answer(question("jacksboro (sample)"), "Open Copy")(box);
             }},
             [&] { choose("unsaved-work"); });
    EXPECT_TRUE(told.startsWith("Place: none of its own yet\nTime: ") && told.contains("\nSize: "));
    EXPECT_EQ(map().getPointHeight(4, 4), 444);
    EXPECT_TRUE(document().isModified());
    EXPECT_EQ(document().path(), "");
    EXPECT_EQ(document().name(), "jacksboro (sample)");
}

TEST_F(LostWork, OnlyLayersThatChangedAreCopiedAgain) {
    map().setPointHeight(4, 4, 444, true);
    map().setPointBlend(3, 3, 1, 20'000);
    aMinutePasses();
    EXPECT_TRUE(QFile::exists(copy() + "/heights.1.png"));
    map().setPointHeight(5, 5, 555, true);
    aMinutePasses();
    ASSERT_TRUE(becomesTrue([&] { return savedIn(copy()).heights[5 * EDGE + 5] == 555; }));
    EXPECT_TRUE(QFile::exists(copy() + "/heights.2.png") && QFile::exists(copy() + "/blends.1.png"));
    EXPECT_NE(savedIn(copy()).blends[3 * EDGE + 3], 0);
    m_pWindow->saveProject(folder());
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(LostWork, TwoProgramsKeepOutOfEachOthersWay) {
    CMapDocument other; // as in a second program
    ASSERT_EQ(other.open(heightmap(), [] {}).error, "");
    const QString isOpen =
        "hills.png is open in another program. Opened here as well, it becomes a copy that is "
        "saved under another name.";
    converse({chooseFile(heightmap()), answer(isOpen, "Cancel")}, [&] { choose("open-heightmap"); });
    EXPECT_EQ(document().path(), folder());
    converse({chooseFile(heightmap()), answer(isOpen, "Open as Copy")}, [&] { choose("open-heightmap"); });
    EXPECT_EQ(document().path(), "");
    EXPECT_EQ(document().name(), "hills.png (copy)");
    EXPECT_EQ(m_pWindow->saveHeightmap(heightmap()),
              "Failed to save " + heightmap() + ": another program has it open");
    other.map().setPointHeight(4, 4, 444, true);
    ASSERT_EQ(other.autosave().error, "");
    map().setPointHeight(5, 5, 555, true);
    aMinutePasses();
    EXPECT_EQ(copies(), QStringList({"1", "2"}));
    converse({}, [&] { choose("unsaved-work"); }); // both are in use
    EXPECT_EQ(m_pWindow->saveHeightmap(m_scratch.filePath("other.png")), "");
    EXPECT_EQ(copies(), QStringList("1"));
    ASSERT_EQ(other.saveHeightmap(heightmap()).error, "");
    EXPECT_EQ(heightIn(heightmap()), 444);
}

TEST_F(LostWork, WhatAnotherProgramWroteIsNotReplacedUnasked) {
    Project theirs = savedIn(folder());
    theirs.heights[4 * EDGE + 4] = 777;
    ASSERT_EQ(writeProject(folder(), theirs).reason, "");
    map().setPointHeight(4, 4, 444, true);
    const QString changed =
        "my map was changed on the disk by another program since it was opened here. To save "
        "now replaces what that has written.";
    converse({answer(changed, "Cancel")}, [&] { choose("save"); });
    EXPECT_EQ(savedIn(folder()).heights[4 * EDGE + 4], 777);
    EXPECT_TRUE(document().isModified());
    converse({answer(changed, "Replace")}, [&] { choose("save"); });
    EXPECT_EQ(savedIn(folder()).heights[4 * EDGE + 4], 444);
    map().setPointHeight(4, 4, 445, true);
    converse({}, [&] { choose("save"); }); // our own writing is no other's
}

TEST_F(LostWork, AProjectReplacesOnlyAProject) {
    ASSERT_TRUE(QDir(m_scratch.path()).mkpath("notes/mine") && QDir(m_scratch.path()).mkdir("empty"));
    map().setPointHeight(4, 4, 444, true);
    const auto tryFolders = [&](QWidget* dialog) { // the dialog stays until one is fit
        for (const char* name : {"notes", "my map", "empty"}) {
            turnTo(dialog);
            chooseFile(m_scratch.filePath(name))(dialog);
        }
    };
    converse(
        {tryFolders,
         answer("notes is not empty, and what is in it is no project. A project goes into a folder of its "
                "own.",
                "OK"),
         answer("There is a project in my map already. Replace it?", "No")},
        [&] { choose("save-project-as"); });
    EXPECT_EQ(document().path(), m_scratch.filePath("empty"));
    EXPECT_EQ(savedIn(m_scratch.filePath("empty")).heights[4 * EDGE + 4], 444);
    EXPECT_NE(savedIn(folder()).heights[4 * EDGE + 4], 444);
    EXPECT_EQ(QDir(m_scratch.filePath("notes")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList("mine"));
}

TEST_F(LostWork, IsCopiedAlthoughAnEditorWasClosedInMidStroke) {
    choose("map-editor");
    vuStartEditing(3, 3, 0, 0);
    vuDestroyEditor();
    ASSERT_TRUE(vuIsEditingInProgress());
    map().setPointHeight(4, 4, 444, true);
    aMinutePasses();
    EXPECT_EQ(copies(), QStringList("1"));
    choose("map-editor");
    vuStartEditing(3, 3, 0, 0);
    vuStopEditing(); // the flag is the whole process's
}

TEST_F(MainWindow, AHeightmapOfEightBitsAsksBeforeItBecomesAnother) {
    const std::vector<std::uint16_t> low(EDGE * EDGE, 90);
    ASSERT_EQ(writeHeightmapFile(heightmap(), EDGE, low, HeightmapBits::EIGHT), "");
    ASSERT_EQ(m_pWindow->openMap(heightmap()), "");
    map().setPointHeight(4, 4, 255, true);
    converse({}, [&] { choose("save"); });
    EXPECT_EQ(readHeightmapFile(heightmap()).pictureBits, 8) << "as long as it can";
    ASSERT_EQ(writeHeightmapFile(heightmap(), EDGE, low, HeightmapBits::EIGHT), "");
    map().setPointHeight(4, 4, 256, true);
    EXPECT_TRUE(document().hasOutgrownItsFile());
    EXPECT_TRUE(document().saveHeightmap(heightmap()).error.endsWith("and the map is higher now"));
    const QString question =
        "hills.png has 8 bits a point, which hold heights up to 255, and the map is higher "
        "now. With 16 bits it can be saved under another name.";
    converse({answer(question, "Cancel")}, [&] { choose("save"); });
    EXPECT_EQ(readHeightmapFile(heightmap()).map.heights, low);
    const QString other = m_scratch.filePath("other.png");
    converse({answer(question, "Save Heightmap As..."), chooseFile(other)}, [&] { choose("save"); });
    EXPECT_EQ(heightIn(other), 256);
    EXPECT_FALSE(document().hasOutgrownItsFile());
    EXPECT_EQ(readHeightmapFile(heightmap()).map.heights, low);
}

TEST_F(MainWindow, RecentHoldsProjectsAndHeightmaps) {
    saveProjectAs(folder());
    auto* recent = m_pWindow->findChild<QMenu*>("recent");
    const auto texts = [&] {
        emit recent->aboutToShow();
        QStringList list;
        for (const QAction* action : recent->actions()) {
            list << action->text() + (action->isEnabled() ? "" : " (off)");
        }
        return list.join('\n').toStdString();
    };
    const QString place = QFileInfo(folder()).absolutePath();
    EXPECT_EQ(texts(), QString("my map - in %1\nhills.png - in %1").arg(place).toStdString());
    recent->actions()[1]->trigger();
    EXPECT_EQ(document().name().toStdString(), "hills.png");
    QFile::remove(heightmap());
    EXPECT_EQ(texts(), QString("hills.png - in %1 (off)\nmy map - in %1").arg(place).toStdString());
    recent->actions()[1]->trigger();
    EXPECT_EQ(document().kind(), CMapDocument::Kind::PROJECT);
}

} // namespace
