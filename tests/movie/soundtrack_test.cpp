// A movie's soundtrack: how long its files are, where each begins, what a cue plays, and the dialog.
#include "engine/memory/movie/memory_movie.h"
#include "movie/awkward_movie.h"
#include "movie/panel/soundtrack_dlg.h"
#include "movie/soundtrack.h"
#include "movie/soundtrack_file.h"
#include "platform/openal/device_opener.h"
#include "resources/resource_ids.h"
#include "sound/sound_fixture.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

#include <cmath>
#include <limits>

namespace {

using wave::operator+;

constexpr unsigned RATE = 8000; // bytes a second of one channel of 8 bits
constexpr std::uint32_t ENDLESS = 0xFFFFFFFF;

wave::Bytes sound(double seconds) {
    return wave::file(wave::format(1, RATE, 8), wave::Bytes(static_cast<std::size_t>(seconds * RATE), 200));
}

/// A format whose header states these bytes a second.
wave::Bytes formatOf(std::uint32_t bytesASecond, unsigned bits = 8, unsigned channels = 1) {
    wave::Bytes block = wave::format(channels, RATE, bits);
    std::ranges::copy(wave::word32(bytesASecond), block.begin() + 8);
    return block;
}

class Soundtrack : public SoundFixture {
protected:
    void write(const char* name, const wave::Bytes& bytes) const {
        m_directory.write(name, wave::textOf(bytes));
    }
    void writeAll() const {
        write("Alpha.wav", sound(1.0));
        write("beta.wav", sound(0.5));
        write("gamma.wav", sound(0.99));
        m_directory.write("broken.wav", "not a sound at all");
    }
    std::vector<float> starts(qxCMovie& movie) const {
        std::vector<float> found;
        for (int i = 0; i < movie.getSoundtrackSize(); ++i) {
            found.push_back(movie.getSound(i)->start);
        }
        return found;
    }
    static std::vector<std::string> names(qxCMovie& movie) {
        std::vector<std::string> found;
        for (int i = 0; i < movie.getSoundtrackSize(); ++i) {
            found.emplace_back(movie.getSound(i)->name);
        }
        return found;
    }

    CSoundtrack m_soundtrack;
};

TEST_F(Soundtrack, FilesAreMeasuredByTheirHeaderAndNeverBeyondTheirEnd) {
    const wave::Bytes second(RATE, 128);
    const wave::Bytes streamed = wave::lyingChunk("data", ENDLESS, second);
    const struct {
        const char* what;
        wave::Bytes bytes;
        float length;
        const char* silentBecause;
    } files[] = {
        {"plain", sound(1.5), 1.5F, ""},
        {"no bytes a second", wave::file(formatOf(0), second), 0.0F, ""},
        {"more than its sign holds", wave::file(formatOf(ENDLESS), second), -8000.0F, ""},
        {"streamed", wave::riff(wave::chunk("fmt ", formatOf(RATE)) + streamed), 1.0F, ""},
        {"no samples", sound(0), 0.0F, "There is no sound in it."},
        {"24 bits", wave::file(formatOf(RATE, 24), second), 1.0F,
         "Its samples have 24 bits; 8 and 16 can be played."},
        {"six channels", wave::file(formatOf(RATE, 8, 6), second), 1.0F,
         "It has 6 channels; mono and stereo can be played."},
        {"compressed", wave::file(wave::format(1, RATE, 8, 85) + wave::word16(0), second), 1.0F,
         "Its samples are compressed or not whole numbers."},
        {"no WAV file", wave::Bytes(100, 7), 0.0F, "This is not a WAV file."},
    };
    for (const auto& file : files) {
        write("a.wav", file.bytes);
        EXPECT_EQ(measureWaveLength("A.WAV"), file.length) << file.what;
        EXPECT_EQ(whySilent("a.wav"), file.silentBecause) << file.what;
    }
    EXPECT_EQ(measureWaveLength("b.wav"), 0.0F);
    EXPECT_EQ(whySilent("b.wav"), "The file is not there.");
}

TEST_F(Soundtrack, EachSoundBeginsOnTheFirstStepAfterTheOneBefore) {
    writeAll();
    CMemoryMovie movie(nullptr, 10, 32.0F);
    m_soundtrack.layOutSoundtrack(movie);
    EXPECT_EQ(soundtrackEnd(movie), 0.0F);
    for (const char* name : {"Alpha.wav", "beta.wav", "lost.wav", "gamma.wav", "ALPHA.WAV"}) {
        movie.addSound(name);
    }
    m_soundtrack.layOutSoundtrack(movie);
    EXPECT_EQ(starts(movie), (std::vector{0.0F, 1.03125F, 1.5625F, 1.59375F, 2.59375F}));
    EXPECT_EQ(movie.getSound(2)->length, 0.0F);
    EXPECT_EQ(soundtrackEnd(movie), 3.59375F);
    EXPECT_EQ(&m_soundtrack.findSoundtrackSound("alpha.WAV"), &m_soundtrack.findSoundtrackSound("Alpha.wav"));
    EXPECT_EQ(m_soundtrack.findSoundtrackSound("alpha.WAV").name, "Alpha.wav") << "as first asked for";
}

TEST_F(Soundtrack, TheMovieGrowsToItsEndWhereItCan) {
    write("a.wav", sound(5.03));
    struct Case {
        float stepRate;
        bool refuses;
        int frames;
    };
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    for (const Case& each : {Case{25.0F, false, 126},
                             {25.0F, true, 100},
                             {0.0F, false, 100},
                             {-25.0F, false, 100},
                             {INFINITE, false, 100},
                             {std::nanf(""), false, 100}}) {
        SCOPED_TRACE(each.stepRate);
        CAwkwardMovie movie(100);
        movie.stepRate = each.stepRate;
        movie.refusesInsert = each.refuses;
        movie.addSound("a.wav");
        m_soundtrack.layOutSoundtrack(movie);
        EXPECT_TRUE(outlastsMovie(movie));
        extendToSoundtrack(movie);
        EXPECT_EQ(movie.getNumFrames(), each.frames);
        EXPECT_TRUE(movie.frames.back()->keyframe);
        EXPECT_EQ(movie.tweenings, 1);
    }
    CMemoryMovie exact(nullptr, 100);
    write("four.wav", sound(4.0));
    exact.addSound("four.wav");
    m_soundtrack.layOutSoundtrack(exact);
    EXPECT_FALSE(outlastsMovie(exact)) << "ends with the movie";
}

TEST_F(Soundtrack, ACueIsHeardAndADeviceThatWasLostIsFoundAgain) {
    writeAll();
    CMemoryMovie movie(nullptr, 100);
    movie.addSound("Alpha.wav");
    movie.addSound("broken.wav");
    const auto isHeard = [this] {
        const std::vector<std::int16_t> samples = hear(200);
        return std::ranges::any_of(samples, [](std::int16_t sample) { return sample != 0; });
    };
    setDeviceOpener({[]() -> ALCdevice* { return nullptr; }, {}});
    g_soundManager.create();
    m_soundtrack.layOutSoundtrack(movie);
    m_soundtrack.playSoundCue("Alpha.wav"); // nobody hears it
    EXPECT_EQ(movie.getSound(0)->length, 1.0F) << "without a device the film is as long";

    useLoopback(RATE);
    m_soundtrack.layOutSoundtrack(movie);
    for (const char* silent : {"", "beta.wav", "broken.wav"}) {
        m_soundtrack.playSoundCue(silent);
        EXPECT_FALSE(isHeard()) << silent;
    }
    m_soundtrack.playSoundCue("ALPHA.wav");
    EXPECT_TRUE(isHeard());
    g_soundManager.stopAll();
    EXPECT_FALSE(isHeard());
    const CSound* const loaded = m_soundtrack.findSoundtrackSound("alpha.wav").sound;
    m_soundtrack.layOutSoundtrack(movie);
    EXPECT_EQ(m_soundtrack.findSoundtrackSound("alpha.wav").sound, loaded) << "loaded once";
    EXPECT_EQ(g_soundManager.loadedSounds().getCount(), 2);
}

class SoundtrackDialog : public Soundtrack {
protected:
    SoundtrackDialog() {
        writeAll();
        m_movie.addSound("gamma.wav");
        m_movie.addSound("lost.wav");
    }

    INT_PTR run(const std::function<void(QWidget&)>& act) {
        CSoundtrackDlg dialog(&m_movie);
        CModalSteps person({[&act](QWidget* shown) { act(*shown); }});
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(person.areDone());
        return result;
    }
    static QListWidget& available(const QWidget& dialog) {
        return ui::control<QListWidget>(dialog, IDC_AVAILABLE_SOUNDS);
    }
    static QListWidget& soundtrack(const QWidget& dialog) {
        return ui::control<QListWidget>(dialog, IDC_SOUNDTRACK);
    }
    static std::string entries(const QListWidget& list) {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i) {
            texts += list.item(i)->text();
        }
        return texts.join(", ").toStdString();
    }
    static std::string selected(const QListWidget& list) {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i) {
            texts += list.item(i)->isSelected() ? QStringList(list.item(i)->text()) : QStringList();
        }
        return texts.join(", ").toStdString();
    }
    static void pick(QListWidget& list, int item, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, keys,
                          list.visualItemRect(list.item(item)).center());
    }
    static void press(const QWidget& dialog, int id) { ui::click(ui::control(dialog, id)); }

    CMemoryMovie m_movie{nullptr, 10};
};

TEST_F(SoundtrackDialog, AddsRemovesAndMovesAsAPersonExpects) {
    const INT_PTR result = run([](QWidget& dialog) {
        QListWidget& from = available(dialog);
        QListWidget& to = soundtrack(dialog);
        EXPECT_EQ(entries(from), "Alpha.wav, beta.wav, broken.wav (unplayable), gamma.wav");
        EXPECT_EQ(entries(to), "gamma.wav, lost.wav (unplayable), <END>");
        press(dialog, IDC_ADD_SOUNDS); // nothing is selected
        press(dialog, IDC_REMOVE_SOUNDS);
        pick(to, 2);
        pick(from, 0);
        pick(from, 2, Qt::ControlModifier);
        press(dialog, IDC_ADD_SOUNDS);
        EXPECT_EQ(selected(to), "Alpha.wav, broken.wav (unplayable)");
        EXPECT_EQ(selected(from), "");
        pick(to, 1);
        pick(to, 4, Qt::ControlModifier);
        press(dialog, IDC_REMOVE_SOUNDS);
        EXPECT_EQ(selected(to), "");
        for (const auto& [item, button] : {std::pair(0, IDC_MOVE_SOUND_UP),
                                           {2, IDC_MOVE_SOUND_DOWN},
                                           {3, IDC_MOVE_SOUND_UP},
                                           {3, IDC_MOVE_SOUND_DOWN}}) {
            pick(to, item);
            press(dialog, button);
            EXPECT_EQ(entries(to), "gamma.wav, Alpha.wav, broken.wav (unplayable), <END>") << item;
        }
        pick(to, 0);
        press(dialog, IDC_MOVE_SOUND_DOWN);
        press(dialog, IDC_MOVE_SOUND_DOWN);
        press(dialog, IDC_MOVE_SOUND_UP);
        pick(from, 1);
        QTest::mouseDClick(from.viewport(), Qt::LeftButton, {}, from.visualItemRect(from.item(1)).center());
        press(dialog, IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(names(m_movie), (std::vector<std::string>{"Alpha.wav", "beta.wav", "gamma.wav", "broken.wav"}))
        << "the double click adds in front of the item with the focus";
}

TEST_F(SoundtrackDialog, LetsGoOfTheMovie) {
    CSoundtrackDlg ended(&m_movie);
    const CModalSteps person({[&](QWidget* shown) {
        soundtrack(*shown).selectAll();
        press(*shown, IDC_REMOVE_SOUNDS);
        EXPECT_EQ(entries(soundtrack(*shown)), "<END>");
        ended.abandon();
    }});
    EXPECT_EQ(ended.DoModal(), IDCANCEL);
    EXPECT_EQ(m_movie.getSoundtrackSize(), 2);
}

TEST_F(SoundtrackDialog, TellsWhyAFileIsSilent) {
    run([](QWidget& dialog) {
        QListWidget& from = available(dialog);
        const auto tipOver = [&from](int item) {
            QTest::mouseMove(from.viewport(), from.visualItemRect(from.item(item)).center());
            ui::settle();
            return from.toolTip().toStdString();
        };
        EXPECT_EQ(tipOver(2), "This is not a WAV file.");
        EXPECT_EQ(tipOver(1), "");
        press(dialog, IDCANCEL);
    });
}

} // namespace
