#include "sandbox/app/map_document.h"
#include "sandbox/failing_disk.h"
#include "sandbox/files/heightmap_file.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::vector<std::uint16_t> ramp(int edge, int highest = 1020) {
    std::vector<std::uint16_t> heights;
    for (int i = 0; i < edge * edge; ++i) {
        heights.push_back(static_cast<std::uint16_t>(i * 37 % (highest + 1)));
    }
    return heights;
}

class HeightmapFile : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(name); }
    QString save(const char* name, int edge) const {
        return writeHeightmapFile(path(name), edge, ramp(edge), HeightmapBits::SIXTEEN);
    }

    QTemporaryDir m_folder;
};

TEST_F(HeightmapFile, SavesInPlaceAndKeepsPermissionsAndLinks) {
    ASSERT_EQ(save("map.png", 5), "");
    const QFile::Permissions narrow = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(path("map.png"), narrow));
    ASSERT_TRUE(QFile::link(path("map.png"), path("link.png")));
    ASSERT_EQ(save("link.png", 9), "");
    EXPECT_TRUE(QFileInfo(path("link.png")).isSymLink());
    EXPECT_EQ(QFile::permissions(path("map.png")) & ~(QFile::ReadUser | QFile::WriteUser), narrow);
    EXPECT_EQ(readHeightmapFile(path("map.png")).map.heights, ramp(9));
}

TEST_F(HeightmapFile, FailuresNameTheFileAndTheReason) {
    QFile large(path("large.png"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(HEIGHTMAP_MAX_FILE_SIZE + 1)); // sparse
    QFile text(path("notes.txt"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("not a picture") > 0);
    text.close();
    ASSERT_EQ(mkfifo(path("pipe.png").toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link("/dev/zero", path("endless.png")));
    const QPair<const char*, const char*> cases[] = {{"missing.png", "no such file or directory"},
                                                     {"pipe.png", "it is not a file"},
                                                     {"endless.png", "it is not a file"},
                                                     {"notes.txt", "it is not a PNG file"},
                                                     {"large.png", "it is larger than 256 MB"}};
    CMapDocument document;
    const CMemoryMap* before = &document.map();
    for (const auto& [name, reason] : cases) {
        EXPECT_EQ(document.open(path(name), [] { ADD_FAILURE() << "swapped"; }).error.toStdString(),
                  QString("Failed to open %1: %2").arg(path(name), reason).toStdString());
    }
    EXPECT_EQ(&document.map(), before);
    for (const auto& [name, reason] :
         {cases[1], cases[2], QPair{"no/map.png", "no such file or directory"}}) {
        EXPECT_EQ(document.saveHeightmap(path(name)).error.toStdString(),
                  QString("Failed to save %1: %2").arg(path(name), reason).toStdString());
    }
}

TEST_F(HeightmapFile, WhatAFullDiskOrAHeightmapCannotKeepStaysUnsaved) {
    ASSERT_EQ(save("map.png", 17), "");
    CMapDocument document;
    ASSERT_EQ(document.open(path("map.png"), [] {}).error, "");
    EXPECT_FALSE(document.isModified()) << "the first coat of paint is no change";
    document.map().setPointColour(0, 1, 1, qxCColour(10, 20, 30, 255));
    EXPECT_FALSE(document.hasHeightChanges());
    document.map().setPointHeight(1, 1, 700, true);
    {
        const CFailingDisk full(CFailingDisk::Fault::SHORT_WRITE, 2);
        EXPECT_EQ(document.saveHeightmap(path("map.png")).error.toStdString(),
                  ("Failed to save " + path("map.png") + ": the disk is full").toStdString());
    }
    EXPECT_TRUE(document.hasHeightChanges());
    ASSERT_EQ(document.saveHeightmap(path("map.png")).error, "");
    EXPECT_FALSE(document.hasHeightChanges());
    EXPECT_TRUE(document.hasOtherChanges()) << "the colour is not in the file";
}

TEST_F(HeightmapFile, APartOfAPictureIsNotSavedOverTheWhole) {
    CMapDocument document;
    const CMapDocument::Outcome outcome = document.open(QString(VESK_TEST_DATA) + "/wide.png", [] {});
    EXPECT_EQ(outcome.note, "The picture is 6 x 4; the 4 x 4 points in its middle were taken. "
                            "Save them under a name of their own.");
    EXPECT_EQ(document.path(), "");
    EXPECT_EQ(document.map().getGridDim(), 3);
}

#if !defined(__SANITIZE_ADDRESS__) // which wants all the addresses for itself
TEST_F(HeightmapFile, WithoutMemoryTheOldMapStays) {
    constexpr int EDGE = 4097;
    const std::vector<std::uint16_t> level(EDGE * EDGE);
    ASSERT_EQ(writeHeightmapFile(path("large.png"), EDGE, level, HeightmapBits::EIGHT), "");
    const pid_t child = fork();
    if (child == 0) {
        CMapDocument document;
        const CMemoryMap* before = &document.map();
        constexpr rlim_t MUCH_LESS = 40'000'000;
        QFile sizes("/proc/self/statm"); // pages
        const rlim_t now =
            sizes.open(QIODevice::ReadOnly) ? sizes.readAll().split(' ')[0].toULongLong() * 4096 : 0;
        const rlimit limit{now + MUCH_LESS, now + MUCH_LESS};
        setrlimit(RLIMIT_AS, &limit);
        const QString told = document.open(path("large.png"), [] {}).error;
        _exit(told.endsWith("there is not enough memory") && &document.map() == before ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}
#endif

} // namespace
