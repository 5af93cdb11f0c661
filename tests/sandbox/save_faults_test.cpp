// Saving on disks that fail, fill up and lose their program: afterwards the old project or the new one opens,
// never a mixture; the person is told; and the next save leaves nothing behind but the project.
#include "sandbox/app/map_document.h"
#include "sandbox/failing_disk.h"
#include "sandbox/files/heightmap_file.h"
#include "sandbox/project/automatic_copy.h"
#include "sandbox/project_samples.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Fault = CFailingDisk::Fault;

constexpr int FILES_OF_A_PROJECT = 6;
constexpr unsigned OLD = 1;
constexpr unsigned NEW = 2;

int longRun(const char* variable, int share) {
    const char* const text = std::getenv(variable);
    return text != nullptr ? std::atoi(text) : share;
}

class SaveFaults : public testing::Test {
protected:
    SaveFaults() { qputenv("XDG_DATA_HOME", m_scratch.filePath("data").toUtf8()); }

    QString folder() const { return m_scratch.filePath("my map"); }
    QString picture() const { return m_scratch.filePath("hills.png"); }

    static ProjectFault save(const QString& folder, unsigned seed) {
        Project project = makeProject(seed);
        return writeProject(folder, project);
    }
    /// The seed of the project that opens from a folder; 0 and a failure when none does, or a mixture.
    static unsigned opened(const QString& folder, std::initializer_list<unsigned> seeds) {
        Project project;
        const ProjectFault fault = readProject(folder, project);
        EXPECT_EQ(fault.reason.toStdString(), "") << fault.path.toStdString();
        for (const unsigned seed : seeds) {
            if (isSameProject(project, makeProject(seed))) {
                return seed;
            }
        }
        ADD_FAILURE() << "a mixture";
        return 0;
    }
    static int countFiles(const QString& folder) {
        return static_cast<int>(QDir(folder).entryList(QDir::Files | QDir::Hidden).size());
    }
    /// Runs `work` once for every operation that can fail in it, in every way.
    template <class Work> void everyFault(Work work) {
        for (const Fault fault : {Fault::ONCE, Fault::EVER_AFTER, Fault::SHORT_WRITE, Fault::LOST_WRITE}) {
            bool reached = true;
            for (int k = 1; reached; ++k) {
                ASSERT_LT(k, 500) << "the save never ends well";
                SCOPED_TRACE(testing::Message() << "operation " << k << ", kind " << static_cast<int>(fault));
                reached = work(fault, k);
            }
        }
    }

    QTemporaryDir m_scratch;
    CQuickDisk m_disk;
};

TEST_F(SaveFaults, AProjectIsTheOldOneOrTheNew) {
    everyFault([this](Fault fault, int k) {
        QDir(folder()).removeRecursively();
        EXPECT_EQ(save(folder(), OLD).reason, "");
        bool failed = false;
        bool unsure = false;
        QString reason;
        {
            const CFailingDisk disk(fault, k);
            reason = save(folder(), NEW).reason;
            failed = disk.hasFailed();
            unsure = disk.hasFailedToSync();
        }
        const unsigned seed = opened(folder(), {OLD, NEW});
        EXPECT_TRUE(!reason.isEmpty() || (seed == NEW && !unsure)) << "not told";
        EXPECT_TRUE(fault != Fault::SHORT_WRITE || reason.isEmpty() || reason == "the disk is full")
            << reason.toStdString();
        EXPECT_EQ(save(folder(), NEW).reason, "");
        EXPECT_EQ(opened(folder(), {NEW}), NEW);
        EXPECT_EQ(countFiles(folder()), FILES_OF_A_PROJECT) << "left behind";
        return failed;
    });
}

TEST_F(SaveFaults, ADocumentIsSavedWithItsTexturesOrNotAtAll) {
    const std::vector<std::uint16_t> level(9, 7);
    ASSERT_EQ(writeHeightmapFile(picture(), 3, level, HeightmapBits::EIGHT), "");
    CMapDocument document;
    ASSERT_EQ(document.open(picture(), [] {}).error, "");
    bool reached = true;
    for (int k = 1; reached; ++k) {
        QDir(folder()).removeRecursively();
        const CFailingDisk disk(Fault::ONCE, k);
        const QString error = document.saveProject(folder()).error;
        reached = disk.hasFailed();
        Project project;
        const bool whole = readProject(folder(), project).reason.isEmpty();
        EXPECT_TRUE(error.isEmpty() ? whole : error.startsWith("Failed to save ")) << k;
        EXPECT_TRUE(whole || !QFile::exists(folder())) << "left behind by operation " << k;
        if (error.isEmpty()) { // it is the document's place now
            ASSERT_EQ(document.open(picture(), [] {}).error, "");
        }
    }
    EXPECT_TRUE(QFile::exists(folder() + "/textures/grass.tga"));
}

TEST_F(SaveFaults, AHeightmapIsTheOldOneOrTheNew) {
    const std::vector<std::uint16_t> former(9, 7);
    const std::vector<std::uint16_t> later(9, 60000);
    everyFault([&](Fault fault, int k) {
        EXPECT_EQ(writeHeightmapFile(picture(), 3, former, HeightmapBits::SIXTEEN), "");
        bool failed = false;
        QString reason;
        {
            const CFailingDisk disk(fault, k);
            reason = writeHeightmapFile(picture(), 3, later, HeightmapBits::SIXTEEN);
            failed = disk.hasFailed();
        }
        const auto heights = readHeightmapFile(picture()).map.heights;
        EXPECT_TRUE(heights == later || (heights == former && !reason.isEmpty()));
        EXPECT_EQ(writeHeightmapFile(picture(), 3, later, HeightmapBits::SIXTEEN), "");
        EXPECT_EQ(countFiles(m_scratch.path()), 1) << "left behind";
        return failed;
    });
}

TEST_F(SaveFaults, ACopyIsWholeOrNotOffered) {
    everyFault([this](Fault fault, int k) {
        bool failed = false;
        {
            CAutomaticCopy copy;
            const CFailingDisk disk(fault, k);
            Project project = makeProject(NEW);
            CopyOrigin origin;
            origin.place = folder();
            CAutomaticCopy::mark(project, origin);
            if (copy.claim().isEmpty()) {
                static_cast<void>(writeProject(copy.folder(), project));
            }
            failed = disk.hasFailed();
        } // its program ends here
        const std::vector<AbandonedCopy> left = CAutomaticCopy::abandoned();
        if (!left.empty()) {
            EXPECT_EQ(opened(left.front().folder, {NEW}), NEW);
            EXPECT_EQ(left.front().origin.place, folder());
        }
        CAutomaticCopy next;
        EXPECT_TRUE(left.empty() ? next.claim().isEmpty() : next.takeOver(left.front().folder));
        next.remove();
        EXPECT_TRUE(QDir(CAutomaticCopy::room()).isEmpty()) << "left behind";
        return failed;
    });
}

/// A child process that runs `work` until it is killed.
template <class Work> pid_t startProgram(Work work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    return child;
}

TEST_F(SaveFaults, AKilledSaveLeavesAWholeProject) {
    std::mt19937 random(7);
    ASSERT_EQ(save(folder(), OLD).reason, "");
    const int kills = longRun("VESK_KILLS", 25);
    for (int kill = 0; kill < kills; ++kill) {
        const pid_t program = startProgram([this] {
            for (unsigned round = 0;; ++round) {
                static_cast<void>(save(folder(), round % 2 == 0 ? NEW : OLD));
            }
        });
        ::usleep(static_cast<useconds_t>(random() % 20'000));
        ::kill(program, SIGKILL);
        ::waitpid(program, nullptr, 0);
        ASSERT_NE(opened(folder(), {OLD, NEW}), 0U) << "kill " << kill;
    }
    EXPECT_EQ(save(folder(), NEW).reason, "");
    EXPECT_EQ(countFiles(folder()), FILES_OF_A_PROJECT) << "left behind";
}

TEST_F(SaveFaults, TwoProgramsNeverMixTheirProjects) {
    constexpr int SAVES = 40;
    ASSERT_EQ(save(folder(), OLD).reason, "");
    const auto saver = [this](unsigned seed) {
        return startProgram([this, seed] {
            for (int i = 0; i < SAVES; ++i) {
                if (!save(folder(), seed).reason.isEmpty()) {
                    ::_exit(1);
                }
            }
        });
    };
    const pid_t programs[] = {saver(OLD), saver(NEW)};
    int running = 2;
    while (running > 0) {
        ASSERT_NE(opened(folder(), {OLD, NEW}), 0U);
        int status = 0;
        if (::waitpid(-1, &status, WNOHANG) > 0) {
            EXPECT_EQ(status, 0) << "a save was refused";
            --running;
        }
    }
    static_cast<void>(programs);
    EXPECT_EQ(countFiles(folder()), FILES_OF_A_PROJECT);
}

TEST_F(SaveFaults, DamagedFilesAreRefusedOrOpenedWhole) {
    ASSERT_EQ(save(folder(), OLD).reason, "");
    std::mt19937 random(11);
    for (const QString& name : QDir(folder()).entryList(QDir::Files)) {
        QFile file(QDir(folder()).filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QByteArray good = file.readAll();
        const auto write = [&file](const QByteArray& bytes) {
            file.resize(0);
            file.seek(0);
            file.write(bytes);
            file.flush();
        };
        for (int round = 0; round < 60; ++round) {
            QByteArray bad = good;
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(good.size()));
            if (round % 3 == 0) {
                bad.truncate(at);
            } else {
                bad[at] = static_cast<char>(bad[at] ^ static_cast<char>(1U << random() % 8));
            }
            write(bad);
            Project project;
            const ProjectFault fault = readProject(folder(), project);
            if (fault.reason.isEmpty()) {
                EXPECT_TRUE(isSameProject(project, makeProject(OLD))) << name.toStdString() << " at " << at;
            } else {
                EXPECT_EQ(fault.path, file.fileName());
                EXPECT_EQ(project.edge, 0) << "half loaded";
            }
        }
        write(good);
    }
}

} // namespace
