// The player as a person at a terminal meets it, on a machine with and without a sound device.
#include "sound/wave_bytes.h"
#include "support/temp_directory.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace {

using testing::HasSubstr;
using wave::Bytes;

class Veskplay : public testing::Test {
protected:
    /// Runs the player behind a shell's `setting`; what both streams got is kept. The exit code.
    int play(const std::string& setting, const std::string& arguments) {
        const std::string command = "cd '" + m_directory.path().string() + "' && " + setting + " '" +
                                    VESK_PLAYER + "' " + arguments + " 2>&1";
        m_strOutput.clear();
        std::FILE* const pipe = popen(command.c_str(), "r");
        for (std::array<char, 256> part{}; std::fgets(part.data(), part.size(), pipe) != nullptr;) {
            m_strOutput += part.data();
        }
        return WEXITSTATUS(pclose(pipe));
    }

    /// A device that writes a file, and how many sounds it holds at once.
    std::string intoFile(int sounds) const {
        m_directory.write("alsoft.conf",
                          "[general]\nsources = " + std::to_string(sounds) + "\n[wave]\nfile = heard.wav\n");
        return "ALSOFT_DRIVERS=wave ALSOFT_CONF=alsoft.conf";
    }

    void write(const char* name, const Bytes& format, const Bytes& data) const {
        m_directory.write(name, wave::textOf(wave::file(format, data)));
    }

    CTempDirectory m_directory;
    std::string m_strOutput;
};

TEST_F(Veskplay, PlaysTheListIntoTheDevice) {
    write("a.wav", wave::format(2, 44100, 16), wave::bytesOf(wave::noise(8820, 3))); // 0.1 s
    Bytes lying = wave::format(1, 44100, 8);
    lying[8] = 100; // bytes a second: 59.97 s of them
    lying[9] = lying[10] = 0;
    write("b.wav", lying, Bytes(5997, 9));
    EXPECT_EQ(play(intoFile(256), "a.wav ./b.wav"), 0) << m_strOutput;
    EXPECT_THAT(m_strOutput, HasSubstr("1/2 a.wav  0:00.1 / 0:00.1"));
    EXPECT_THAT(m_strOutput, HasSubstr("2/2 b.wav  1:00.0 / 1:00.0"));
    std::ifstream stream(m_directory.path() / "heard.wav", std::ios::binary);
    const std::string heard(std::istreambuf_iterator<char>(stream), {});
    EXPECT_GT(std::ssize(heard) - std::count(heard.begin(), heard.end(), '\0'), 8820);
}

TEST_F(Veskplay, HoldsOneSoundAtATime) {
    write("a.wav", wave::format(2, 22050, 16), Bytes(400, 9));
    EXPECT_EQ(play(intoFile(2), "a.wav a.wav a.wav a.wav a.wav a.wav"), 0) << m_strOutput;
}

TEST_F(Veskplay, TellsThatTheDeviceWentAway) {
    write("a.wav", wave::format(2, 22050, 16), Bytes(22050 * 4 * 60, 1)); // a minute
    EXPECT_EQ(play("trap '' XFSZ; ulimit -f 256; " + intoFile(256), "a.wav"), 1);
    EXPECT_THAT(m_strOutput, HasSubstr("Failed to play a.wav"));
}

TEST_F(Veskplay, SaysWhatItCannotPlay) {
    write("good.wav", wave::format(2, 22050, 16), Bytes(400, 9));
    write("deep.wav", wave::format(2, 44100, 24), Bytes(600, 9));
    m_directory.write("text.wav", std::string(100, 'x'));
    const std::string unread = "Failed to open missing.wav: no such file\n"
                               "Failed to open text.wav: not a WAV file with a format and samples\n"
                               "Failed to open .: not a file\n";
    EXPECT_EQ(play("ALSOFT_DRIVERS=null", "missing.wav good.wav text.wav ."), 1);
    EXPECT_EQ(m_strOutput, "Failed to open the sound device: none was found; connect one or start the sound "
                           "server\n" +
                               unread);
    EXPECT_EQ(play(intoFile(256), "missing.wav deep.wav"), 1);
    EXPECT_EQ(m_strOutput,
              "Failed to open missing.wav: no such file\n"
              "Failed to open deep.wav: the sound device does not play it (format 1, channels: 2, "
              "bits: 24, rate: 44100)\n");
    EXPECT_EQ(play("", ""), 2);
    EXPECT_THAT(m_strOutput, HasSubstr("Usage: veskplay FILE..."));
}

} // namespace
