#include "controls/surface_fixture.h"
#include "controls/surface_texture_fixture.h"
#include "controls/texture_picker_button.h"
#include "resources/resource_ids.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QTest>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TexturePickerTest : public TextureTest {
protected:
    TexturePickerTest() {
        m_picker.setScene(&m_scene);
        m_picker.setChosenTexture(m_pGrass);
    }

    QString caption() { return qobject_cast<QAbstractButton*>(m_dialog.button(0))->text(); }

    /// Click the button and let the user take this step in the list.
    void pick(CModalSteps::Step step) {
        const CModalSteps user({std::move(step)});
        QTest::mouseClick(m_dialog.button(0), Qt::LeftButton);
        EXPECT_TRUE(user.areDone());
    }

    CTexturePickerButton m_picker;
    CSurfaceDialog m_dialog{{&m_picker}, BS_PUSHBUTTON, 50, 50};
    const SentMessage m_changed{UM_TEXTURECHANGED, 0, CSurfaceDialog::FIRST_ID};
};

TEST_F(TexturePickerTest, OkTakesTheChosenTexture) {
    pick([](QWidget* list) {
        EXPECT_EQ(selectedEntry(list), "grass");
        choose(list, "rock");
        click(list, IDOK);
    });
    EXPECT_EQ(m_picker.getChosenTexture(), m_pRock);
    EXPECT_EQ(caption(), "rock");
    EXPECT_THAT(m_dialog.m_sent, ElementsAre(m_changed));
}

TEST_F(TexturePickerTest, WhenItsPanelIsClosedTheOpenListEndsWithoutAChoice) {
    pick([&](QWidget* list) {
        choose(list, "rock");
        m_picker.abandon();
    });
    EXPECT_EQ(m_picker.getChosenTexture(), nullptr);
    EXPECT_THAT(m_dialog.m_sent, IsEmpty());
}

} // namespace
