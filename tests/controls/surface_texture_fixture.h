#pragma once

#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <QComboBox>
#include <QListWidget>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A scene of two textures, "grass" and "rock", of which "grass" has an image: opaque, 8 by 8, one colour.
class TextureTest : public testing::Test {
protected:
    TextureTest();
    ~TextureTest() override;

    static QColor grassColour() { return {30, 120, 40}; }

    static void click(const QWidget* list, int id) { ui::click(ui::control(*list, id)); }
    /// Click the list's entry with this text.
    static void choose(const QWidget* list, const QString& entry);
    static QPoint positionOf(const QListWidget& entries, const QString& entry);
    static QString selectedEntry(const QWidget* list);

    QTemporaryDir m_directory;
    CMemoryScene m_scene;
    qxCTexture* m_pGrass;
    qxCTexture* m_pRock;
};
