#include "sandbox/tour/tour_stage.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace {

/// Plays the acts on the modal dialogs as they come up. What goes wrong is kept: nothing may be thrown
/// through the loops of the dialogs.
class CAnswers {
public:
    explicit CAnswers(std::vector<std::function<void(QWidget&)>> acts)
        : m_acts(std::move(acts)), m_pFormer(QApplication::activeModalWidget()) {
        QObject::connect(&m_poll, &QTimer::timeout, [this] { look(); });
        constexpr int PACE = 10; // milliseconds
        m_poll.start(PACE);
    }

    bool areOver() const { return !m_bBusy && QApplication::activeModalWidget() == m_pFormer && isPlayed(); }
    QString failure() const {
        return !m_strFailure.isEmpty() || isPlayed() ? m_strFailure
                                                     : QString("dialog %1 does not open").arg(m_nNext + 1);
    }

private:
    bool isPlayed() const { return m_nNext == m_acts.size() || !m_strFailure.isEmpty(); }

    void look() {
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        if (m_bBusy || dialog == nullptr || dialog == m_pFormer || dialog == m_pLast ||
            !dialog->isVisible()) {
            return;
        }
        m_bBusy = true;
        m_pLast = dialog;
        if (!isPlayed()) {
            play(*dialog);
        }
        if (dialog != nullptr && dialog->isVisible()) {
            if (m_strFailure.isEmpty()) {
                m_strFailure = "a dialog stays open: " + dialog->windowTitle();
            }
            dialog->close();
        }
        m_bBusy = false;
    }

    void play(QWidget& dialog) {
        try {
            m_acts[m_nNext++](dialog);
        } catch (const CTourFailure& failure) {
            m_strFailure = failure.what();
        }
    }

    std::vector<std::function<void(QWidget&)>> m_acts;
    QPointer<QWidget> m_pFormer;
    QPointer<QWidget> m_pLast;
    QTimer m_poll;
    std::size_t m_nNext = 0;
    bool m_bBusy = false;
    QString m_strFailure;
};

/// Where the colour dialog takes a colour as text.
QLineEdit* colourField(QWidget& dialog) {
    const QList<QLineEdit*> fields = dialog.findChildren<QLineEdit*>();
    const auto found = std::ranges::find_if(
        fields, [](const QLineEdit* field) { return field->isVisible() && field->text().startsWith('#'); });
    return found != fields.end() ? *found : nullptr;
}

} // namespace

void CTourStage::answer(const std::function<void()>& open, std::vector<std::function<void(QWidget&)>> acts) {
    const CAnswers answers(std::move(acts));
    open();
    const bool over = waitUntil([&] { return answers.areOver(); });
    require(answers.failure().isEmpty(), answers.failure());
    require(over, "a dialog is still open");
}

QImage CTourStage::chooseColour(QWidget& swatch, const QColor& colour) {
    QImage picture;
    const auto enterColour = [&](QWidget& dialog) {
        QLineEdit* field = colourField(dialog);
        const auto* buttons = dialog.findChild<QDialogButtonBox*>();
        require(field != nullptr && buttons != nullptr, "the colour dialog lacks its controls");
        m_hands.click(*field);
        m_hands.pressKey(*field, Qt::Key_A, Qt::ControlModifier);
        m_hands.type(*field, colour.name());
        picture = takePicture();
        m_hands.click(*buttons->button(QDialogButtonBox::Ok));
    };
    answer([&] { m_hands.doubleClick(swatch); }, {enterColour});
    require(colourOf(swatch) == colour, "the swatch does not show the colour chosen");
    return picture;
}

QImage CTourStage::chooseTexture(int picker, const QString& name) {
    QImage picture;
    const auto pick = [&](QWidget& list) {
        auto* names = findControl<QAbstractItemView>(list, IDC_TEXTURES);
        auto* ok = findControl(list, OK_BUTTON);
        require(names != nullptr && ok != nullptr, "the texture list lacks its controls");
        const QModelIndexList found =
            names->model()->match(names->model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        require(!found.isEmpty(), "the texture list has no " + name);
        m_hands.click(*names->viewport(), QRectF(names->visualRect(found.first())).center());
        picture = takePicture();
        m_hands.click(*ok);
    };
    answer([&] { clickControl(picker); }, {pick});
    const auto* button = qobject_cast<QAbstractButton*>(&control(picker));
    require(button != nullptr && button->text() == name, "the picker does not show " + name);
    return picture;
}
