#include "engine/memory/engine_directories.h"
#include "engine/qx_file.h"
#include "support/temp_directory.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

class EngineFiles : public testing::Test {
protected:
    void SetUp() override { CEngineDirectories::setDirectories({m_first.path(), m_second.path()}); }
    void TearDown() override { CEngineDirectories::setDirectories({}); }

    static std::string contentOf(const char* name) {
        qxCFile file;
        if (!file.open(name, qxFileModeRead)) {
            return "(none)";
        }
        std::string content(static_cast<std::size_t>(file.getLength()), '?');
        EXPECT_EQ(file.read(content.data(), file.getLength(), false), file.getLength());
        return content;
    }

    static std::vector<std::string> search(const char* pattern) {
        std::vector<std::string> names;
        for (const char* name = qxCFile::findFirst(pattern); name != nullptr; name = qxCFile::findNext()) {
            names.emplace_back(name);
        }
        return names;
    }

    CTempDirectory m_first;
    CTempDirectory m_second;
};

TEST_F(EngineFiles, NamesResolveInDirectoryOrderWithoutRegardToCase) {
    m_first.write("Wind.WAV", "first wind");
    m_second.write("wind.wav", "second wind");
    m_second.write("rain.wav", "rain");
    m_second.write("Both.wav", "capital");
    m_second.write("both.wav", "small");
    m_second.write("Two words, \xC3\xA4.wav", "spaced");
    m_second.write("a..b", "dots");
    struct {
        const char* name;
        const char* content;
    } const cases[] = {
        {"Wind.WAV", "first wind"},
        {"wind.wav", "first wind"},
        {"WIND.wav", "first wind"},
        {"RAIN.WAV", "rain"},
        {"both.wav", "small"},
        {"Both.wav", "capital"},
        {"BOTH.WAV", "capital"},
        {"TWO WORDS, \xC3\xA4.WAV", "spaced"},
        {"a..b", "dots"},
        {"TWO WORDS, \xC3\x84.WAV", "(none)"}, // letters beyond A to Z have no case
        {"snow.wav", "(none)"},
        {"wind", "(none)"},
        {"", "(none)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(contentOf(c.name), c.content) << c.name;
    }
}

TEST_F(EngineFiles, NoNameLeavesTheDirectories) {
    m_first.write("secret.txt", "secret");
    fs::create_directory(m_first.path() / "inner");
    fs::create_directory(m_first.path() / "folder.wav");
    m_first.write("inner/below.txt", "below");
    m_first.write("back\\slash.txt", "slash");
    m_first.write("c:x.txt", "drive");
    m_first.write("line\nbreak.txt", "control");
    CEngineDirectories::setDirectories({m_first.path() / "inner", m_first.path()});
    const std::string absolute = (m_first.path() / "secret.txt").string();
    for (const char* name :
         {absolute.c_str(), "../secret.txt", "inner/below.txt", "inner/../secret.txt", "./secret.txt", ".",
          "..", "inner", "folder.wav", "back\\slash.txt", "c:x.txt", "line\nbreak.txt"}) {
        EXPECT_EQ(contentOf(name), "(none)") << name;
        EXPECT_FALSE(CEngineDirectories::resolve(name)) << name;
    }
    EXPECT_EQ(contentOf("secret.txt"), "secret");
    EXPECT_EQ(search("*"), (std::vector<std::string>{"below.txt", "secret.txt"}));
}

TEST_F(EngineFiles, ReadStartsAtTheBeginningAndStopsAtTheEnd) {
    m_first.write("ten.bin", "0123456789");
    qxCFile file;
    ASSERT_TRUE(file.open("TEN.bin", qxFileModeRead));
    EXPECT_STREQ(file.getFilename(), "TEN.bin");
    EXPECT_EQ(file.getLength(), 10);
    std::array<char, 20> buffer = {};
    EXPECT_EQ(file.read(buffer.data(), 4, false), 4);
    EXPECT_EQ(file.read(buffer.data(), 20, false), 10);
    EXPECT_STREQ(buffer.data(), "0123456789");
    EXPECT_EQ(file.read(buffer.data(), 3, true), 3);
    EXPECT_EQ(file.read(buffer.data(), -1, false), 0);
    EXPECT_EQ(file.read(nullptr, 3, false), 0);
    EXPECT_FALSE(file.open("missing", qxFileModeRead));
    EXPECT_EQ(file.getLength(), 0) << "a failed open leaves no file open";
    EXPECT_STREQ(file.getFilename(), "");
    EXPECT_EQ(file.read(buffer.data(), 3, false), 0);
    EXPECT_FALSE(file.open("ten.bin", static_cast<qxFileMode>(1)));
    EXPECT_FALSE(file.open(nullptr, qxFileModeRead));
}

TEST_F(EngineFiles, SearchListsMatchingNamesOnceSorted) {
    for (const char* name : {"b.wav", "C.WAV", "a.tga", "wav"}) {
        m_first.write(name, "");
    }
    for (const char* name : {"B.WAV", "a.wav", "ab.wav"}) {
        m_second.write(name, "");
    }
    m_second.write("Two.mid", "");
    m_second.write("TWO.mid", "");
    fs::create_directory(m_second.path() / "d.wav");
    struct {
        const char* pattern;
        std::vector<std::string> names;
    } const cases[] = {
        {"*.wav", {"a.wav", "ab.wav", "b.wav", "C.WAV"}},
        {"?.Wav", {"a.wav", "b.wav", "C.WAV"}},
        {"A*", {"a.tga", "a.wav", "ab.wav"}},
        {"*a*v*", {"a.wav", "ab.wav", "b.wav", "C.WAV", "wav"}},
        {"wav", {"wav"}},
        {"t*", {"TWO.mid"}},
        {"*.mp3", {}},
        {"", {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(search(c.pattern), c.names) << c.pattern;
    }
    EXPECT_EQ(qxCFile::findNext(), nullptr);
    EXPECT_EQ(qxCFile::findFirst(nullptr), nullptr);
    EXPECT_STREQ(qxCFile::findFirst("*.wav"), "a.wav");
    EXPECT_STREQ(qxCFile::findFirst("*.wav"), "a.wav") << "a fresh search needs no close";
    qxCFile::findClose();
    EXPECT_EQ(qxCFile::findNext(), nullptr);
}

TEST_F(EngineFiles, FullPathIsWrittenOnlyWhenThereIsOneThatFits) {
    m_first.write("Rock.tga", "");
    std::array<char, qxCFile::MAX_PATH_LENGTH> buffer = {'k', 'e', 'p', 't', 0};
    EXPECT_FALSE(qxCFile::getFullPathName("missing.tga", buffer.data()));
    const std::string longest(250, 'x');
    m_first.write(longest, "");
    EXPECT_FALSE(qxCFile::getFullPathName(longest.c_str(), buffer.data()));
    EXPECT_FALSE(qxCFile::getFullPathName(nullptr, buffer.data()));
    EXPECT_FALSE(qxCFile::getFullPathName("rock.tga", nullptr));
    EXPECT_STREQ(buffer.data(), "kept");
    EXPECT_TRUE(qxCFile::getFullPathName("rock.tga", buffer.data()));
    EXPECT_EQ(fs::path(buffer.data()), m_first.path() / "Rock.tga");
}

} // namespace
