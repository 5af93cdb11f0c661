// A host that closes the movie editor, frees the movie and unloads the library while the film plays or not,
// in every order that the exports allow. By hand: VESK_UNLOADS=1000 bin/test_unloading_host
#include "host/veskutil.h"

#include "engine/memory/engine_directories.h"
#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "resources/resource_ids.h"
#include "sound/wave_bytes.h"
#include "support/temp_directory.h"
#include "support/ui_driver.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>
#include <dlfcn.h>
#include <functional>
#include <memory>
#include <string>

namespace {

class UnloadingHost : public testing::Test {
protected:
    UnloadingHost() {
        const wave::Bytes sound = wave::file(wave::format(1, 8000, 8), wave::Bytes(800, 200));
        m_sounds.write("bell.wav", wave::textOf(sound));
        CEngineDirectories::setDirectories({m_sounds.path()});
    }
    ~UnloadingHost() override { CEngineDirectories::setDirectories({}); }

    template <class Function> Function* find(const char* name) {
        auto* const found = reinterpret_cast<Function*>(dlsym(m_pLibrary, name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void load() {
        m_pLibrary = dlopen(VESKUTIL_FILE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(m_pLibrary, nullptr) << dlerror();
        m_create = find<decltype(vuCreateMovieEditor)>("_Z19vuCreateMovieEditorP6HWND__P8qxCMovieb");
        m_destroy = find<decltype(vuDestroyMovieEditor)>("_Z20vuDestroyMovieEditorv");
        m_isActive = find<decltype(vuIsMovieEditorActive)>("_Z21vuIsMovieEditorActivev");
        m_updateSound = find<decltype(vuSoundUpdate)>("_Z13vuSoundUpdatev");
    }
    void openOn(QWidget& host, bool plays) {
        m_movie = std::make_unique<CMemoryMovie>(&m_scene, 50);
        m_scene.addNode(m_movie.get());
        m_movie->addCamera("one");
        m_movie->addSound("bell.wav");
        m_movie->getFrame(1)->setAnimTrigger("mill");
        m_create(reinterpret_cast<HWND>(host.winId()), m_movie.get(), true);
        ASSERT_TRUE(m_isActive());
        if (plays) {
            ui::click(ui::control(*ui::dialog(IDD_MOVIE_EDITOR), IDC_PLAY));
            ASSERT_TRUE(m_movie->isPlaying());
            m_updateSound();
        }
    }
    void free() {
        m_scene.removeNode(m_movie.get());
        m_movie.reset();
    }
    /// One host's life: 'C' closes the editor in this way, 'F' frees the movie, 'U' unloads the library.
    void live(const std::string& order, int way, bool plays) {
        load();
        auto host = std::make_unique<QWidget>();
        openOn(*host, plays);
        const std::function<void()> ways[] = {
            [] { ui::click(ui::control(*ui::dialog(IDD_MOVIE_EDITOR), IDC_CLOSE_MOVIE)); },
            [] { ui::dialog(IDD_MOVIE_EDITOR)->close(); },
            [this] { m_destroy(); },
            [&host] { host.reset(); },
            [this] { // from inside the movie, where a host hears of the animation
                m_movie->setTriggerHandler([this](const char*) { m_destroy(); });
                m_movie->advance(0.05);
                m_destroy(); // a film that stands raises no triggers
            },
        };
        for (const char step : order) {
            if (step == 'C') {
                ways[way]();
                EXPECT_FALSE(m_isActive());
                EXPECT_EQ(qxCMovie::getCallback(), nullptr);
                EXPECT_EQ(qxCAnimator::getCallback(), nullptr);
                EXPECT_FALSE(m_movie->isPlaying());
            } else if (step == 'F') {
                free();
            } else {
                dlclose(m_pLibrary);
                m_updateSound(); // the library stays where it is
            }
            if (m_movie != nullptr) {
                m_movie->advance(0.01);
            }
            ui::settle();
        }
    }

    CTempDirectory m_sounds;
    CMemoryScene m_scene;
    std::unique_ptr<CMemoryMovie> m_movie;
    void* m_pLibrary = nullptr;
    decltype(&vuCreateMovieEditor) m_create = nullptr;
    decltype(&vuDestroyMovieEditor) m_destroy = nullptr;
    decltype(&vuIsMovieEditorActive) m_isActive = nullptr;
    decltype(&vuSoundUpdate) m_updateSound = nullptr;
};

TEST_F(UnloadingHost, MayEndInEveryOrder) {
    constexpr int WAYS = 5;
    const char* const asked = std::getenv("VESK_UNLOADS");
    const int rounds = asked != nullptr ? std::atoi(asked) : 5;
    for (int round = 0; round < rounds; ++round) {
        for (const char* order : {"CFU", "CUF", "UCF"}) {
            for (int way = 0; way < WAYS; ++way) {
                for (const bool plays : {false, true}) {
                    live(order, way, plays);
                    ASSERT_FALSE(HasFailure()) << order << ", way " << way << ", plays " << plays;
                }
            }
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
