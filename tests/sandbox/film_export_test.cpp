#include "sandbox/export/film_export.h"

#include "sandbox/app/map_document.h"
#include "sandbox/export/export_dialog.h"
#include "sandbox/export/sound_mix.h"
#include "sandbox/failing_disk.h"
#include "sandbox/view/map_view.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr QSize SIZE(320, 240);
constexpr int FRAMES = 100; // four seconds

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// The beginning of the sample's film.
class FilmExportTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(m_document.open(QString(VESK_SAMPLES) + "/jacksboro", [] {}).error, "");
        shorten(FRAMES);
    }

    CMemoryMovie& movie() { return m_document.film().movie(); }
    void shorten(int frames) {
        movie().setRangeStart(frames);
        movie().setRangeEnd(movie().getNumFrames() - 1);
        movie().deleteRange();
    }
    QString in(const QString& name) const { return m_folder.filePath(name); }
    QString exportTo(const QString& name, const ExportProgress& progress, QSize size = SIZE) {
        const FilmExported result =
            exportFilm(m_document.map(), m_document.film(), {in(name), size, {}}, progress);
        EXPECT_EQ(result.silent, QStringList());
        return result.error;
    }

    CQuickDisk m_disk;
    QTemporaryDir m_folder;
    CMapDocument m_document;
};

TEST_F(FilmExportTest, IsTheSameEveryTimeAndAsTheViewShowsIt) {
    shorten(12);
    const auto goOn = [](int /*done*/, int /*all*/) { return true; };
    movie().setRangeSingleFrame(3);
    ASSERT_EQ(exportTo("one", goOn), "");
    EXPECT_EQ(movie().getRangeStart(), 3) << "the current frame stays";
    ASSERT_EQ(exportTo("two", goOn), "");
    const QStringList files = QDir(in("one")).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 13);
    for (const QString& name : files) {
        EXPECT_EQ(bytesOf(in("one/" + name)), bytesOf(in("two/" + name))) << name.toStdString();
    }
    CMapView view;
    view.resize(SIZE);
    view.setMap(&m_document.map(), &m_document.film());
    view.setFilm(&m_document.film());
    m_document.scene().selectCamera(m_document.film().drivenCamera());
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    for (const int frame : {0, 5, 11}) {
        movie().setRangeSingleFrame(frame);
        movie().updateManual(movie().convertFrameToTime(frame));
        const QImage shown = view.grabFramebuffer().convertToFormat(QImage::Format_RGB32);
        const QImage written(in("one/" + pictureName(frame)));
        EXPECT_TRUE(written.convertToFormat(QImage::Format_RGB32) == shown) << frame;
    }
    EXPECT_NE(bytesOf(in("one/" + pictureName(5))), bytesOf(in("one/" + pictureName(11))));
}

TEST_F(FilmExportTest, EverySoundIsHeardFromItsStartAtItsPitch) {
    movie().clearSoundtrack();
    movie().addSound("birds.wav");
    movie().addSound("missing.wav");
    movie().addSound("bell.wav");
    layOutSounds(movie());
    const float laidOut = movie().getSound(2)->start;
    EXPECT_GT(laidOut, movie().getSound(0)->length);
    movie().getSound(0)->start = 0.5F; // after a silence that shows where it begins

    QByteArray wave;
    QStringList silent;
    ASSERT_EQ(mixSounds(movie(), wave, silent), "");
    EXPECT_EQ(silent, QStringList("missing.wav"));
    ASSERT_EQ(wave.size(), 44 + FRAMES * MIX_RATE / 25 * 4) << "as long as the film";
    std::vector<std::int16_t> samples(static_cast<std::size_t>(wave.size() - 44) / 2);
    std::memcpy(samples.data(), wave.constData() + 44, samples.size() * 2);
    const auto start = static_cast<std::ptrdiff_t>(MIX_RATE); // both channels of half a second
    EXPECT_EQ(std::ranges::count(samples.begin(), samples.begin() + start, 0), start);
    // The file has half the rate of the mix: every second sample of what is heard lies in it.
    const QByteArray birds = bytesOf(QString(VESK_SAMPLES) + "/sounds/birds.wav");
    for (const int index : {3000, 8000, 12'345}) {
        std::int16_t stored = 0;
        std::memcpy(&stored, birds.constData() + 44 + index * 4, sizeof stored);
        EXPECT_NE(stored, 0);
        EXPECT_NEAR(samples[static_cast<std::size_t>(MIX_RATE / 2 + index * 2) * 2], stored, 1) << index;
    }
}

TEST_F(FilmExportTest, WhatFailsOrIsCalledOffLeavesNothing) {
    const auto goOn = [](int /*done*/, int /*all*/) { return true; };
    EXPECT_EQ(exportTo("off", [](int done, int /*all*/) { return done < 4; }), "");
    EXPECT_FALSE(QFile::exists(in("off")));
    for (const auto& [fault, reason] : {std::pair(CFailingDisk::Fault::SHORT_WRITE, "the disk is full"),
                                        std::pair(CFailingDisk::Fault::ONCE, "input/output error")}) {
        const CFailingDisk disk(fault, 14);
        const QString error = exportTo(QString(reason).replace("/", "-"), goOn);
        EXPECT_TRUE(error.contains("/frame-0") && error.contains(reason)) << error.toStdString();
    }
    EXPECT_FALSE(QFile::exists(in("input-output error")));
    ASSERT_TRUE(QDir(in("the disk is full")).removeRecursively()); // that disk removes no files either

    ASSERT_TRUE(QDir(in(".")).mkdir("taken"));
    QFile mine(in("taken/mine"));
    ASSERT_TRUE(mine.open(QFile::WriteOnly));
    mine.close();
    EXPECT_EQ(exportTo("taken", goOn), in("taken") + " is not empty. A film goes into a folder of its own.");
    EXPECT_EQ(exportTo("taken/mine", goOn), in("taken/mine") + " cannot be made: it is not a folder.");
    EXPECT_EQ(exportTo("large", goOn, QSize(8193, 10)),
              "The film cannot be drawn: a picture has 1 to 8192 pixels a side.");
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("taken"));
}

TEST(FilmExportDialog, WritesWithProgressAndTellsWhere) {
    const CQuickDisk disk;
    const QTemporaryDir folder;
    CMapDocument document;
    ASSERT_EQ(document.open(QString(VESK_SAMPLES) + "/jacksboro", [] {}).error, "");
    QWidget window;
    window.show();
    QString told;
    bool cancels = false;
    QTimer person; // answers whatever asks
    QObject::connect(&person, &QTimer::timeout, [&] {
        QWidget* const asked = QApplication::activeModalWidget();
        if (auto* file = qobject_cast<QFileDialog*>(asked)) {
            file->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath(cancels ? "off" : "film"));
            file->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
        } else if (auto* size = qobject_cast<QInputDialog*>(asked)) {
            size->setTextValue("32 x 18");
            size->accept();
        } else if (auto* progress = qobject_cast<QProgressDialog*>(asked); progress != nullptr && cancels) {
            progress->findChild<QPushButton*>()->click();
        } else if (auto* box = qobject_cast<QMessageBox*>(asked)) {
            told = box->text();
            box->accept();
        }
    });
    person.start(5);
    const auto ask = [&] {
        askToExportFilm(window, document.map(), document.film(), {}, folder.path());
        return told;
    };
    EXPECT_EQ(ask(), "The film is in " + folder.filePath("film") + ".");
    EXPECT_EQ(QDir(folder.filePath("film")).entryList(QDir::Files).size(), 501);
    cancels = true;
    EXPECT_EQ(ask(), "The export was called off. Nothing of it is left.");
    EXPECT_FALSE(QFile::exists(folder.filePath("off")));
}

} // namespace
