// The player as a person at a terminal meets it, on a machine with and without a sound device.
#include "engine/temp_directory.h"
#include "sound/wave_bytes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/wait.h>

namespace {

using testing::HasSubstr;
using wave::Bytes;

struct Result {
    std::string output; ///< both streams
    int code = -1;
};

class Veskplay : public testing::Test {
protected:
    Result play(const std::string& environment, const std::string& arguments) const {
        const std::string command = "cd '" + m_directory.path().string() + "' && " + environment + " '" +
                                    VESK_PLAYER + "' " + arguments + " 2>&1";
        Result result;
        std::FILE* const pipe = popen(command.c_str(), "r");
        std::array<char, 256> part{};
        while (std::fgets(part.data(), part.size(), pipe) != nullptr) {
            result.output += part.data();
        }
        result.code = WEXITSTATUS(pclose(pipe));
        return result;
    }

    void write(const char* name, const Bytes& bytes) const {
        m_directory.write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

    CTempDirectory m_directory;
};

TEST_F(Veskplay, PlaysTheListIntoTheDevice) {
    const std::vector<std::int16_t> samples = wave::noise(8820, 3); // 0.1 s
    write("a.wav", wave::file(wave::format(2, 44100, 16), wave::bytesOf(samples)));
    write("b.wav", wave::file(wave::format(1, 22050, 16), Bytes(4410, 9)));
    m_directory.write("alsoft.conf", "[wave]\nfile = heard.wav\n");
    const Result result = play("ALSOFT_DRIVERS=wave ALSOFT_CONF=alsoft.conf", "a.wav ./b.wav");
    EXPECT_EQ(result.code, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("1/2 a.wav  0:00.1 / 0:00.1"));
    EXPECT_THAT(result.output, HasSubstr("2/2 b.wav  0:00.1 / 0:00.1"));
    std::ifstream stream(m_directory.path() / "heard.wav", std::ios::binary);
    const std::string heard(std::istreambuf_iterator<char>(stream), {});
    const auto loud = std::count_if(heard.begin() + std::min<std::ptrdiff_t>(100, std::ssize(heard)),
                                    heard.end(), [](char byte) { return byte != 0; });
    EXPECT_GT(loud, 8820) << "of " << heard.size() << " bytes";
}

TEST_F(Veskplay, SaysWhatItCannotRead) {
    write("good.wav", wave::file(wave::format(2, 22050, 16), Bytes(400, 9)));
    write("deep.wav", wave::file(wave::format(2, 44100, 24), Bytes(600, 9)));
    write("text.wav", Bytes(100, 'x'));
    for (const char* drivers : {"null", "nothing"}) {
        const Result result =
            play(std::string("ALSOFT_DRIVERS=") + drivers, "missing.wav good.wav text.wav deep.wav .");
        EXPECT_EQ(result.code, 1);
        EXPECT_EQ(
            result.output,
            "Failed to open the sound device: none was found; connect one or start the sound server\n"
            "Failed to open missing.wav: no such file\n"
            "Failed to open text.wav: not a WAV file with a format and samples\n"
            "Failed to open deep.wav: format 1, channels: 2, bits: 24 is not played; PCM of 8 or 16 bits, "
            "one or two channels, is\n"
            "Failed to open .: not a file\n")
            << drivers;
    }
}

TEST_F(Veskplay, WithoutFilesTellsItsUse) {
    const Result result = play("", "");
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.output, HasSubstr("Usage: veskplay FILE..."));
}

} // namespace
