#include "platform/framework/number_text.h"
#include "platform/recording_dialog.h"
#include "support/modal_steps.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>

#include <optional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { Height = 11, Blend, Name, Tick, RadioA, RadioB, RadioC, Slide, Push };

struct Values {
    int height = 7;
    float blend = 0.1F;
    CString name = "rock";
    int tick = 1;
    int radio = 1;
    int slide = 40;
};

/// Takes over the height when its field is left.
class ExchangingDialog : public RecordingDialog {
public:
    int runs = 0;
    bool takesOver = false;

protected:
    afx_msg void OnHeightLeft() {
        ++runs;
        if (takesOver) {
            UpdateData(TRUE);
        }
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ExchangingDialog, RecordingDialog)
ON_EN_KILLFOCUS(Height, &ExchangingDialog::OnHeightLeft)
END_MESSAGE_MAP()

class DataExchange : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.exchange = [this](CDataExchange* pDX) {
            DDX_Text(pDX, Height, m_values.height);
            DDV_MinMaxInt(pDX, m_values.height, 0, 1023);
            DDX_Text(pDX, Blend, m_values.blend);
            DDX_Text(pDX, Name, m_values.name);
            DDX_Check(pDX, Tick, m_values.tick);
            DDX_Radio(pDX, RadioA, m_values.radio);
            DDX_Slider(pDX, Slide, m_values.slide);
        };
        ASSERT_TRUE(m_dialog.CreateIndirect(dialogLayout({
            dialogItem(Height, "Edit", WS_TABSTOP, {0, 0, 40, 12}),
            dialogItem(Blend, "Edit", WS_TABSTOP, {50, 0, 40, 12}),
            dialogItem(Name, "Edit", WS_TABSTOP, {100, 0, 40, 12}),
            dialogItem(Tick, "Button", BS_AUTOCHECKBOX, {0, 20, 40, 14}),
            dialogItem(RadioA, "Button", BS_AUTORADIOBUTTON | WS_GROUP, {0, 40, 40, 14}),
            dialogItem(RadioB, "Button", BS_AUTORADIOBUTTON, {50, 40, 40, 14}),
            dialogItem(RadioC, "Button", BS_AUTORADIOBUTTON, {100, 40, 40, 14}),
            dialogItem(Slide, "msctls_trackbar32", WS_GROUP, {0, 60, 80, 14}),
            dialogItem(Push, "Button", WS_TABSTOP, {100, 60, 40, 14}, "Push"),
        })));
        ASSERT_TRUE(ui::waitUntilActive(ui::dialog(RecordingDialog::templateId)));
    }

    QString textAt(int id) { return m_dialog.at<QLineEdit>(id).text(); }
    /// Answers the next message box and keeps its text.
    ModalSteps::Step dismiss(std::vector<QString>& texts) {
        return [&texts](QWidget* window) {
            texts.push_back(dynamic_cast<QMessageBox&>(*window).text());
            ui::press(Qt::Key_Return);
        };
    }

    ExchangingDialog m_dialog;
    Values m_values;
};

TEST_F(DataExchange, MovesEveryKindOfValueBothWays) {
    EXPECT_EQ(textAt(Height), "7");
    EXPECT_EQ(textAt(Blend), "0.1");
    EXPECT_EQ(textAt(Name), "rock");
    EXPECT_TRUE(m_dialog.at<QAbstractButton>(RadioB).isChecked());
    ui::type(m_dialog.at(Height), "1023");
    ui::type(m_dialog.at(Blend), " +2.5e-1 ");
    m_dialog.at<QLineEdit>(Name).setText(QStringLiteral("Gr\u00fcn"));
    ui::click(m_dialog.at(Tick));
    ui::click(m_dialog.at(RadioC));
    ASSERT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(m_values.height, 1023);
    EXPECT_EQ(m_values.blend, 0.25F);
    EXPECT_STREQ(m_values.name, "Gr\u00fcn");
    EXPECT_EQ(m_values.tick, 0);
    EXPECT_EQ(m_values.radio, 2);
    EXPECT_EQ(m_values.slide, 40);
}

TEST_F(DataExchange, MinusOneChecksNoRadioButton) {
    m_values.radio = -1;
    ASSERT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_FALSE(m_dialog.at<QAbstractButton>(RadioB).isChecked());
    m_values.radio = 0;
    ASSERT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(m_values.radio, -1);
}

TEST_F(DataExchange, RefusesWhatDoesNotFitAndStaysThere) {
    const struct {
        Id id;
        const char* typed;
        const char* message;
    } cases[] = {
        {Height, "1024", "Enter an integer between 0 and 1023."},
        {Height, "-1", "Enter an integer between 0 and 1023."},
        {Height, "99999999999", "Enter an integer between 0 and 1023."},
        {Height, "12x", "Enter an integer."},
        {Height, "", "Enter an integer."},
        {Blend, "0,5", "Enter a number."},
        {Blend, "inf", "Enter a number."},
    };
    for (const auto& refused : cases) {
        SCOPED_TRACE(refused.typed);
        m_values = Values();
        m_dialog.UpdateData(FALSE);
        ui::type(m_dialog.at(Name), "changed");
        m_dialog.at<QLineEdit>(refused.id).setText(refused.typed);
        m_dialog.takeHeard();
        std::vector<QString> texts;
        ModalSteps user({dismiss(texts)});
        EXPECT_FALSE(m_dialog.UpdateData(TRUE));
        EXPECT_THAT(texts, ElementsAre(QString(refused.message)));
        EXPECT_STREQ(m_values.name, "rock") << "later members keep their values";
        ASSERT_TRUE(ui::waitUntil([&] { return m_dialog.at(refused.id).hasFocus(); }));
        EXPECT_EQ(m_dialog.at<QLineEdit>(refused.id).selectedText(), refused.typed);
    }
}

TEST_F(DataExchange, ABadValueLeftByAClickShowsOneBoxAndNoClick) {
    m_dialog.takesOver = true;
    ui::type(m_dialog.at(Height), "5000");
    m_dialog.takeHeard();
    std::vector<QString> texts;
    ModalSteps user({dismiss(texts)});
    ui::click(m_dialog.at(Push));
    EXPECT_EQ(texts.size(), 1U);
    ASSERT_TRUE(ui::waitUntil([this] { return m_dialog.at(Height).hasFocus(); }));
    EXPECT_EQ(m_dialog.at<QLineEdit>(Height).selectedText(), "5000");
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("11 left")) << "the click belongs to the box";

    ui::settle();
    ui::type(m_dialog.at(Height), "50");
    ui::click(m_dialog.at(Push));
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("11 left", "19 clicked"));
    EXPECT_EQ(m_values.height, 50);
}

TEST_F(DataExchange, ABadValueLeftByAKeyOrForAnotherWindowBringsThePersonBack) {
    m_dialog.takesOver = true;
    QWidget other;
    other.show();
    const std::function<void()> leavings[] = {
        [] { ui::press(Qt::Key_Tab); },
        [&other] {
            other.activateWindow();
            ui::waitUntil([] { return QApplication::activeModalWidget() == nullptr; });
        },
    };
    for (const auto& leave : leavings) {
        QWidget& window = *ui::dialog(RecordingDialog::templateId);
        window.activateWindow();
        ASSERT_TRUE(ui::waitUntilActive(&window));
        ui::type(m_dialog.at(Height), "5000");
        std::vector<QString> texts;
        ModalSteps user({dismiss(texts)});
        leave();
        EXPECT_TRUE(ui::waitUntil([&] { return user.areDone() && m_dialog.at(Height).hasFocus(); }));
        EXPECT_EQ(texts.size(), 1U);
        EXPECT_EQ(m_dialog.at<QLineEdit>(Blend).selectedText(), "");
    }
    m_dialog.takesOver = false;
}

TEST_F(DataExchange, NotificationsAreLockedOutWhileItRuns) {
    ui::type(m_dialog.at(Height), "bad");
    m_dialog.takeHeard();
    m_dialog.takesOver = true;
    m_dialog.runs = 0;
    std::vector<QString> texts;
    ModalSteps user({dismiss(texts)});
    // The edit loses the focus to the box that tells of its own text.
    EXPECT_FALSE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(texts.size(), 1U);
    EXPECT_EQ(m_dialog.runs, 0);
}

TEST(NumberText, ReadsAsTheFrameworkDoesWhateverTheLocale) {
    const struct {
        const char* text;
        std::optional<int> integer;
        std::optional<float> real;
    } cases[] = {
        {"12", 12, 12.0F},
        {"\t -3 ", -3, -3.0F},
        {"+4", 4, 4.0F},
        {"-0", 0, 0.0F},
        {"+-4", {}, {}},
        {"0.5", {}, 0.5F},
        {".5", {}, 0.5F},
        {"5.", {}, 5.0F},
        {"1e2", {}, 100.0F},
        {"2147483648", 2147483647, 2147483648.0F},
        {"-2147483649", -2147483647 - 1, -2147483648.0F},
        {"1e99", {}, {}},
        {"nan", {}, {}},
        {"0x10", {}, {}},
        {"1 2", {}, {}},
        {"", {}, {}},
        {" ", {}, {}},
    };
    for (const auto& read : cases) {
        SCOPED_TRACE(read.text);
        int integer = 77;
        float real = 77.0F;
        EXPECT_EQ(readNumber(read.text, integer), read.integer.has_value());
        EXPECT_EQ(integer, read.integer.value_or(77));
        EXPECT_EQ(readNumber(read.text, real), read.real.has_value());
        EXPECT_EQ(real, read.real.value_or(77.0F));
    }
    EXPECT_EQ(writeNumber(0.1F), "0.1");
    EXPECT_EQ(writeNumber(1234567.0F), "1.23457e+06");
    EXPECT_EQ(writeNumber(2.0F), "2");
}

} // namespace
