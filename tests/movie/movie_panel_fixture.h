#pragma once

#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"

#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

/// A movie editor opened through the exports, driven by mouse and keys like a person's. Its own movie has 20
/// frames at 25 a second, two cameras, and keyframes at 0, 5, 10 and 19.
class MoviePanelTest : public testing::Test {
protected:
    MoviePanelTest();
    ~MoviePanelTest() override;

    void open();
    static void open(qxCMovie& movie, bool showClose = true);

    /// The panel's window, null when it is closed.
    static QWidget* panel();
    static QWidget* control(int id);
    static bool isEnabled(int id) { return control(id)->isEnabled(); }
    /// Text of an edit, or of a list's chosen entry.
    static QString text(int id);
    static bool isChecked(int id);

    static void click(int id);
    /// Click into an edit and replace its text, without leaving it.
    static void type(int id, const QString& newText);
    /// Press an arrow of a spin.
    static void step(int id, bool up);
    /// Leave the field that has the keyboard.
    static void leave();
    static void choose(int id, int item);
    /// Make this frame the current one, and let the panel know.
    void goTo(int frame);
    /// A place in the middle of a frame's column, as the panel opens.
    static QPoint column(int frame);
    qxCMovieFrame& frame(int index) { return *m_movie.getFrame(index); }

    CMemoryScene m_scene;
    CMemoryMovie m_movie{&m_scene, 20};
    CMemoryCamera& m_camera;
};
