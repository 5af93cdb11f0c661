#include "platform/framework/number_text.h"
#include "support/modal_steps.h"
#include "support/recording_dialog.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QMessageBox>

#include <functional>
#include <optional>

namespace {

using testing::ElementsAre;

enum Id { HEIGHT = 11, BLEND, NAME, TICK, RADIO_A, RADIO_B, RADIO_C, SLIDE, PUSH };

struct Values {
    int height = 7;
    float blend = 0.1F;
    CString name = "rock";
    int tick = 1;
    int radio = 1;
    int slide = 40;
};

/// Takes over the height when its field is left.
class CExchangingDialog : public CRecordingDialog {
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

BEGIN_MESSAGE_MAP(CExchangingDialog, CRecordingDialog)
ON_EN_KILLFOCUS(HEIGHT, &CExchangingDialog::OnHeightLeft)
END_MESSAGE_MAP()

class DataExchange : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.exchange = [this](CDataExchange* pDX) {
            DDX_Text(pDX, HEIGHT, m_values.height);
            DDV_MinMaxInt(pDX, m_values.height, 0, 1023);
            DDX_Text(pDX, BLEND, m_values.blend);
            DDX_Text(pDX, NAME, m_values.name);
            DDX_Check(pDX, TICK, m_values.tick);
            DDX_Radio(pDX, RADIO_A, m_values.radio);
            DDX_Slider(pDX, SLIDE, m_values.slide);
        };
        m_dialog.open({
            dialogItem(HEIGHT, "Edit", WS_TABSTOP, {0, 0, 40, 12}),
            dialogItem(BLEND, "Edit", WS_TABSTOP, {50, 0, 40, 12}),
            dialogItem(NAME, "Edit", WS_TABSTOP, {100, 0, 40, 12}),
            dialogItem(TICK, "Button", BS_AUTOCHECKBOX, {0, 20, 40, 14}),
            dialogItem(RADIO_A, "Button", BS_AUTORADIOBUTTON | WS_GROUP, {0, 40, 40, 14}),
            dialogItem(RADIO_B, "Button", BS_AUTORADIOBUTTON, {50, 40, 40, 14}),
            dialogItem(RADIO_C, "Button", BS_AUTORADIOBUTTON, {100, 40, 40, 14}),
            dialogItem(SLIDE, "msctls_trackbar32", WS_GROUP, {0, 60, 80, 14}),
            dialogItem(PUSH, "Button", WS_TABSTOP, {100, 60, 40, 14}, "Push"),
        });
    }

    /// Answers the next message box and keeps its text.
    CModalSteps::Step dismiss(std::vector<QString>& texts) {
        return [&texts](QWidget* window) {
            texts.push_back(dynamic_cast<QMessageBox&>(*window).text());
            ui::press(Qt::Key_Return);
        };
    }

    CExchangingDialog m_dialog;
    Values m_values;
};

TEST_F(DataExchange, AFieldLooksAsItsStyleDrawsIt) {
    auto& field = m_dialog.at<QLineEdit>(NAME);
    QLineEdit plain(field.parentWidget());
    plain.setGeometry(field.geometry());
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Highlight, Qt::green);
    const std::function<void(QLineEdit&)> states[] = {
        [](QLineEdit& edit) {
            edit.clearFocus();
            edit.setText("rock");
        },
        [](QLineEdit& edit) { edit.setFocus(); },
        [&](QLineEdit& edit) {
            edit.setFocus();
            edit.setPalette(dark);
        },
        [](QLineEdit& edit) { edit.setEnabled(false); },
        [](QLineEdit& edit) { edit.resize(60, 30); },
        [](QLineEdit& edit) { edit.setStyleSheet("border: 2px solid red; padding: 3px"); },
    };
    plain.show();
    for (const auto& enter : states) {
        enter(plain);
        const QImage wanted = plain.grab().toImage();
        enter(field);
        EXPECT_EQ(field.grab().toImage(), wanted) << "in state " << &enter - &states[0];
    }
}

TEST_F(DataExchange, RefusesWhatDoesNotFitAndStaysThere) {
    const struct {
        Id id;
        const char* typed;
        const char* message;
    } cases[] = {
        {HEIGHT, "1024", "Enter an integer between 0 and 1023."},
        {HEIGHT, "-1", "Enter an integer between 0 and 1023."},
        {HEIGHT, "99999999999", "Enter an integer between 0 and 1023."},
        {HEIGHT, "12x", "Enter an integer."},
        {HEIGHT, "", "Enter an integer."},
        {BLEND, "0,5", "Enter a number."},
        {BLEND, "inf", "Enter a number."},
    };
    for (const auto& refused : cases) {
        SCOPED_TRACE(refused.typed);
        m_values = Values();
        m_dialog.UpdateData(FALSE);
        ui::type(m_dialog.at(NAME), "changed");
        m_dialog.at<QLineEdit>(refused.id).setText(refused.typed);
        m_dialog.takeHeard();
        std::vector<QString> texts;
        CModalSteps user({dismiss(texts)});
        EXPECT_FALSE(m_dialog.UpdateData(TRUE));
        EXPECT_THAT(texts, ElementsAre(QString(refused.message)));
        EXPECT_STREQ(m_values.name, "rock") << "later members keep their values";
        ASSERT_TRUE(ui::waitUntil([&] { return m_dialog.at(refused.id).hasFocus(); }));
        EXPECT_EQ(m_dialog.at<QLineEdit>(refused.id).selectedText(), refused.typed);
    }
}

TEST_F(DataExchange, ABadValueLeftByAClickShowsOneBoxAndNoClick) {
    m_dialog.takesOver = true;
    ui::type(m_dialog.at(HEIGHT), "5000");
    m_dialog.takeHeard();
    std::vector<QString> texts;
    CModalSteps user({dismiss(texts)});
    ui::click(m_dialog.at(PUSH));
    EXPECT_EQ(texts.size(), 1U);
    ASSERT_TRUE(ui::waitUntil([this] { return m_dialog.at(HEIGHT).hasFocus(); }));
    EXPECT_EQ(m_dialog.at<QLineEdit>(HEIGHT).selectedText(), "5000");
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("11 left")) << "the click belongs to the box";

    ui::settle();
    ui::type(m_dialog.at(HEIGHT), "50");
    ui::click(m_dialog.at(PUSH));
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("11 left", "19 clicked"));
    EXPECT_EQ(m_values.height, 50);
}

TEST_F(DataExchange, ADialogThatCannotBeFilledEndsBeforeAnyoneSeesIt) {
    CRecordingDialog dialog;
    DialogTemplate layout = dialogLayout({});
    layout.id = CRecordingDialog::TEMPLATE_ID + 1;
    dialog.exchange = [](CDataExchange* pDX) { pDX->Fail(); };
    ASSERT_TRUE(dialog.InitModalIndirect(layout));
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST(NumberText, ReadsAsTheFrameworkDoesWhateverTheLocale) {
    const struct {
        const char* text;
        std::optional<int> integer;
        std::optional<float> real;
    } cases[] = {
        {"\t -3 ", -3, -3.0F},
        {"+4", 4, 4.0F},
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
