#include "platform/qt/controls/button_window.h"

#include "platform/framework/controls/button.h"
#include "platform/qt/icons.h"
#include "platform/windows/control_messages.h"

#include <QCheckBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

#include <algorithm>

namespace qtbackend {

namespace {

/// A check box or radio button that takes clicks on its whole area, not on mark and text alone.
template <class Button> class CWholeAreaButton : public Button {
public:
    using Button::Button;

protected:
    bool hitButton(const QPoint& position) const override { return this->rect().contains(position); }
};

/// A push button that stays in. Styles darken such a button by a shade, which a row of pictures hides: it is
/// filled and framed with the colour of selected things too.
class CStayingButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        if (isChecked()) {
            option->palette.setColor(QPalette::Button, accent().lighter(FILL_LIGHTER));
        }
    }

    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        if (!isChecked()) {
            return;
        }
        constexpr double HALF = FRAME / 2.0;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(accent(), FRAME));
        painter.drawRoundedRect(QRectF(rect()).adjusted(HALF, HALF, -HALF, -HALF), FRAME, FRAME);
    }

private:
    static constexpr int FRAME = 2;          // pixels
    static constexpr int FILL_LIGHTER = 165; // per cent

    QColor accent() const {
        return isEnabled() ? palette().color(QPalette::Active, QPalette::Highlight)
                           : palette().color(QPalette::Disabled, QPalette::ButtonText);
    }
};

bool isPush(DWORD style) {
    const DWORD type = style & BS_TYPEMASK;
    return type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON;
}

QAbstractButton& makeWidget(DWORD style, QWidget* parent) {
    const DWORD type = style & BS_TYPEMASK;
    if (isPush(style) || (style & BS_PUSHLIKE) != 0) {
        auto* const button = isPush(style) ? new QPushButton(parent) : new CStayingButton(parent);
        button->setAutoDefault(false);
        button->setDefault(type == BS_DEFPUSHBUTTON);
        button->setCheckable(!isPush(style));
        return *button;
    }
    if (type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON) {
        auto* const button = new CWholeAreaButton<QRadioButton>(parent);
        button->setAutoExclusive(false); // the group is what the template says, and none may be checked
        return *button;
    }
    return *new CWholeAreaButton<QCheckBox>(parent);
}

} // namespace

CButtonWindow::CButtonWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(&makeWidget(traits.window.style, parent.widget()), &parent, traits.window)
    , m_button(static_cast<QAbstractButton&>(*widget())) {
    m_button.setFocusPolicy(Qt::StrongFocus);
    m_button.installEventFilter(this);
    QObject::connect(&m_button, &QAbstractButton::clicked, this, [this] { onClicked(); });
    CButtonWindow::setText(traits.text);
}

LRESULT CButtonWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case BM_GETCHECK:
        return m_button.isChecked() ? 1 : 0;
    case BM_SETCHECK:
        setCheck(wParam != 0);
        return 0;
    case BM_CLICK:
        m_button.click();
        return 0;
    case BM_SETIMAGE: {
        const HICON former = m_icon;
        setIcon(reinterpret_cast<HICON>(lParam));
        return reinterpret_cast<LRESULT>(former);
    }
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

LRESULT CButtonWindow::dialogCode() const {
    if (isRadio()) {
        return DLGC_BUTTON | DLGC_RADIOBUTTON;
    }
    if (!isPush(style())) {
        return DLGC_BUTTON;
    }
    return DLGC_BUTTON | (type() == BS_DEFPUSHBUTTON ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

std::unique_ptr<CWnd> CButtonWindow::makeStandIn() const {
    return std::make_unique<CButton>();
}

void CButtonWindow::setCheck(bool checked) {
    if (m_button.isChecked() != checked) {
        m_button.setChecked(checked);
    }
}

bool CButtonWindow::isIconic() const {
    return m_icon != nullptr || (style() & BS_ICON) != 0;
}

/// A button made for icons stays empty while it has none.
void CButtonWindow::setIcon(HICON icon) {
    if (m_icon == icon) {
        return;
    }
    const bool wasIconic = isIconic();
    m_icon = icon;
    m_button.setIcon(icon != nullptr ? iconOf(icon) : QIcon());
    m_button.setIconSize(iconSizeFor(std::min(m_button.width(), m_button.height())));
    if (wasIconic != isIconic()) {
        setText(m_strText);
    }
}

/// The caption of a button that shows an icon is for tool tip and accessibility.
void CButtonWindow::setText(const QString& text) {
    if (text == m_strText) {
        return; // panels set their captions more often than they change
    }
    m_strText = text;
    m_button.setText(isIconic() ? QString() : text);
    if (isIconic()) {
        QString plain = text;
        plain.remove(QLatin1Char('&'));
        m_button.setToolTip(plain);
        m_button.setAccessibleName(plain);
    }
}

void CButtonWindow::onClicked() {
    if (isEnding()) {
        return;
    }
    if (isRadio()) {
        m_button.setChecked(true); // a second click would have taken the check away
        uncheckGroup();
    }
    notify(BN_CLICKED);
}

void CButtonWindow::uncheckGroup() {
    const auto& siblings = parentWindow()->children();
    const auto own = std::find(siblings.begin(), siblings.end(), this);
    const auto startsGroup = [](const CWindow* window) { return (window->style() & WS_GROUP) != 0; };
    auto first = own;
    while (first != siblings.begin() && !startsGroup(*first)) {
        --first;
    }
    const auto end = std::find_if(own + 1, siblings.end(), startsGroup);
    std::for_each(first, end, [this](CWindow* member) {
        auto* const button = dynamic_cast<CButtonWindow*>(member);
        if (button != nullptr && button != this && button->isRadio()) {
            button->setCheck(false);
        }
    });
}

} // namespace qtbackend
