#include "sandbox/app/heightmap_file.h"
#include "sandbox/app/map_document.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

Heightmap ramp(int edge) {
    Heightmap map{edge, {}};
    for (int i = 0; i < edge * edge; ++i) {
        map.heights.push_back(static_cast<std::uint16_t>(i * 37 % 1021));
    }
    return map;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// While it lives no file of this process can grow beyond `bytes`: the disk is full, as it were.
class CFullDisk {
public:
    explicit CFullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~CFullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    CFullDisk(const CFullDisk&) = delete;
    CFullDisk& operator=(const CFullDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

class HeightmapFile : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(name); }
    QStringList filesInFolder() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir m_folder;
};

TEST_F(HeightmapFile, SavesInPlaceAndKeepsPermissionsAndLinks) {
    ASSERT_EQ(writeHeightmapFile(path("map.png"), ramp(5)), "");
    const QFile::Permissions narrow = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(path("map.png"), narrow));
    ASSERT_TRUE(QFile::link(path("map.png"), path("link.png")));
    ASSERT_EQ(writeHeightmapFile(path("link.png"), ramp(9)), "");
    EXPECT_TRUE(QFileInfo(path("link.png")).isSymLink());
    EXPECT_EQ(QFile::permissions(path("map.png")) & ~(QFile::ReadUser | QFile::WriteUser), narrow);
    const HeightmapReading reading = readHeightmapFile(path("map.png"));
    EXPECT_EQ(reading.error, "");
    EXPECT_EQ(reading.map.heights, ramp(9).heights);
}

TEST_F(HeightmapFile, AFailedSaveLeavesTheOldFileAndNothingElse) {
    ASSERT_EQ(writeHeightmapFile(path("map.png"), ramp(5)), "");
    const QByteArray before = contents(path("map.png"));
    CMapDocument document;
    ASSERT_EQ(document.open(path("map.png"), [] {}).error, "");
    document.map().setPointHeight(2, 2, 999, true);
    {
        const CFullDisk full(20);
        EXPECT_EQ(document.saveHeightmap(path("map.png")).error,
                  "Failed to save " + path("map.png") + ": file too large");
    }
    EXPECT_EQ(contents(path("map.png")), before);
    EXPECT_EQ(filesInFolder(), QStringList{"map.png"});
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ(document.saveHeightmap(path("map.png")).error, "");
    EXPECT_FALSE(document.isModified());
    EXPECT_NE(contents(path("map.png")), before);
}

TEST_F(HeightmapFile, FailuresNameTheFileAndTheReason) {
    QFile text(path("notes.txt"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("not a picture");
    text.close();
    QFile large(path("large.png"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    ASSERT_TRUE(large.resize(HEIGHTMAP_MAX_FILE_SIZE + 1)); // sparse
    large.close();
    struct Case {
        QString path;
        QString reason;
    };
    ASSERT_EQ(mkfifo(path("pipe.png").toLocal8Bit().constData(), 0600), 0);
    CMapDocument document;
    const CMemoryMap* before = &document.map();
    for (const Case& c :
         {Case{path("missing.png"), "no such file or directory"}, Case{path("pipe.png"), "it is not a file"},
          Case{path("notes.txt"), "it is not a PNG file"},
          Case{path("large.png"), "it is larger than 256 MB"}}) {
        bool swapped = false;
        const auto outcome = document.open(c.path, [&] { swapped = true; });
        EXPECT_EQ(outcome.error, "Failed to open " + c.path + ": " + c.reason);
        EXPECT_FALSE(swapped);
        EXPECT_EQ(&document.map(), before);
    }
    EXPECT_EQ(document.saveHeightmap(path("no/such/folder.png")).error,
              "Failed to save " + path("no/such/folder.png") + ": no such file or directory");
}

TEST_F(HeightmapFile, ADocumentKnowsWhatAHeightmapCannotKeep) {
    ASSERT_EQ(writeHeightmapFile(path("map.png"), ramp(17)), "");
    CMapDocument document;
    ASSERT_EQ(document.open(path("map.png"), [] {}).error, "");
    EXPECT_EQ(document.map().getGridDim(), 16);
    EXPECT_EQ(document.map().getPointHeight(3, 2), ramp(17).heights[2 * 17 + 3]);
    EXPECT_FALSE(document.isModified()) << "the first coat of paint is no change";
    document.map().setPointColour(0, 1, 1, qxCColour(10, 20, 30, 255));
    EXPECT_FALSE(document.hasHeightChanges());
    EXPECT_TRUE(document.hasOtherChanges());
    document.map().setPointHeight(1, 1, 700, true);
    EXPECT_TRUE(document.hasHeightChanges());
    ASSERT_EQ(document.saveHeightmap(path("map.png")).error, "");
    EXPECT_FALSE(document.hasHeightChanges());
    EXPECT_TRUE(document.hasOtherChanges()) << "the colour is not in the file";
    document.setWaterLevel(345);
    EXPECT_EQ(document.waterLevel(), 345);
}

TEST_F(HeightmapFile, APartOfAPictureIsNotSavedOverTheWhole) {
    CMapDocument document;
    const QString wide = QString(VESK_TEST_DATA) + "/wide.png"; // 6 x 4, 16 bits
    const CMapDocument::Outcome outcome = document.open(wide, [] {});
    ASSERT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.note, "The picture is 6 x 4; the 4 x 4 points in its middle were taken. "
                            "Save them under a name of their own.");
    EXPECT_EQ(document.path(), "");
    EXPECT_EQ(document.map().getGridDim(), 3);
}

TEST(SampleMap, LooksLikeALandscape) {
    CMapDocument document;
    ASSERT_EQ(document.open(QString(VESK_SAMPLES) + "/jacksboro_fault_dem.png", [] {}).error, "");
    const auto heights = document.map().getHeights();
    const auto [low, high] = std::ranges::minmax(heights);
    EXPECT_EQ(document.map().getGridDim(), 320);
    EXPECT_EQ(low, 241);
    EXPECT_EQ(high, 1075);
    const double relief = (high - low) * static_cast<double>(document.map().heightScale);
    EXPECT_NEAR(relief / 320.0, 0.07, 0.001);
}

} // namespace
