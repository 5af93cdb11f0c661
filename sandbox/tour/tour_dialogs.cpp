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
        : m_acts(std::move(acts)), m_former(QApplication::activeModalWidget()) {
        QObject::connect(&m_poll, &QTimer::timeout, [this] { look(); });
        constexpr int PACE = 10; // milliseconds
        m_poll.start(PACE);
    }

    bool areOver() const { return !m_busy && QApplication::activeModalWidget() == m_former && isPlayed(); }
    QString failure() const {
        return !m_failure.isEmpty() || isPlayed() ? m_failure
                                                  : QString("dialog %1 does not open").arg(m_next + 1);
    }

private:
    bool isPlayed() const { return m_next == m_acts.size() || !m_failure.isEmpty(); }

    void look() {
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        if (m_busy || dialog == nullptr || dialog == m_former || dialog == m_last || !dialog->isVisible()) {
            return;
        }
        m_busy = true;
        m_last = dialog;
        if (!isPlayed()) {
            play(*dialog);
        }
        if (dialog != nullptr && dialog->isVisible()) {
            if (m_failure.isEmpty()) {
                m_failure = "a dialog stays open: " + dialog->windowTitle();
            }
            dialog->close();
        }
        m_busy = false;
    }

    void play(QWidget& dialog) {
        try {
            m_acts[m_next++](dialog);
        } catch (const CTourFailure& failure) {
            m_failure = failure.what();
        }
    }

    std::vector<std::function<void(QWidget&)>> m_acts;
    QPointer<QWidget> m_former;
    QPointer<QWidget> m_last;
    QTimer m_poll;
    std::size_t m_next = 0;
    bool m_busy = false;
    QString m_failure;
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

QImage CTourStage::chooseColour(int swatch, const QColor& colour) {
    QImage picture;
    const auto enterColour = [&](QWidget& dialog) {
        QLineEdit* field = colourField(dialog);
        const auto* buttons = dialog.findChild<QDialogButtonBox*>();
        require(field != nullptr && buttons != nullptr, "the colour dialog lacks its controls");
        m_hands.click(*field);
        m_hands.strike(*field, Qt::Key_A, Qt::ControlModifier);
        m_hands.type(*field, colour.name());
        picture = takePicture();
        m_hands.click(*buttons->button(QDialogButtonBox::Ok));
    };
    answer([&] { m_hands.doubleClick(control(swatch)); }, {enterColour});
    require(swatchColour(swatch) == colour, QString("swatch %1 does not show the colour chosen").arg(swatch));
    return picture;
}

QImage CTourStage::chooseTexture(int picker, const QString& name) {
    QImage picture;
    const auto pick = [&](QWidget& list) {
        auto* names = list.findChild<QAbstractItemView*>(QString::number(tour::TEXTURE_NAMES));
        auto* ok = list.findChild<QWidget*>(QString::number(tour::OK));
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
