#include "platform/qt/controls/static_window.h"

#include "platform/framework/controls/static.h"

#include <QGroupBox>
#include <QLabel>
#include <QPaintEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace qtbackend {

namespace {

/// Lines and rectangles carry no text.
bool isShape(DWORD style) {
    const DWORD type = style & SS_TYPEMASK;
    return (type >= SS_BLACKRECT && type <= SS_WHITEFRAME) || type == SS_ETCHEDFRAME;
}

Qt::Alignment alignmentOf(DWORD style) {
    const Qt::Alignment vertical = (style & SS_CENTERIMAGE) != 0 ? Qt::AlignVCenter : Qt::AlignTop;
    switch (style & SS_TYPEMASK) {
    case SS_CENTER:
        return vertical | Qt::AlignHCenter;
    case SS_RIGHT:
        return vertical | Qt::AlignRight;
    default:
        return vertical | Qt::AlignLeft;
    }
}

void letMouseThrough(QWidget& widget) {
    widget.setAttribute(Qt::WA_TransparentForMouseEvents);
    widget.lower();
}

/// A group box whose title stands in the line of its frame. Templates leave no more room than that between
/// the title and what the box surrounds, and many styles would put the frame below the title.
class CTitledFrame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override {
        constexpr int INDENT = 6;
        constexpr int GAP = 3;
        constexpr int LINE = 3; // no style's line is wider
        const int height = fontMetrics().height();
        // The controls it surrounds are repainted over it and over, and there is nothing of it among them.
        if (rect().adjusted(LINE, height + LINE, -LINE, -LINE).contains(event->region().boundingRect())) {
            return;
        }
        QStylePainter painter(this);
        const QRect text(INDENT + GAP, 0, fontMetrics().horizontalAdvance(title()), height);
        painter.drawItemText(text, Qt::AlignVCenter, palette(), isEnabled(), title(), QPalette::WindowText);
        if (!title().isEmpty()) {
            painter.setClipRegion(QRegion(rect()) - text.adjusted(-GAP, 0, GAP, 0));
        }
        QStyleOptionFrame frame;
        frame.initFrom(this);
        frame.rect.setTop(height / 2);
        frame.frameShape = QFrame::StyledPanel;
        frame.lineWidth = 1;
        frame.state |= QStyle::State_Sunken;
        painter.drawPrimitive(QStyle::PE_Frame, frame);
    }
};

QWidget* makeWidget(DWORD style, QWidget* parent) {
    auto* const label = new QLabel(parent);
    if (isShape(style)) {
        label->setFrameStyle((style & SS_TYPEMASK) == SS_ETCHEDFRAME
                                 ? static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Sunken)
                                 : static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
        letMouseThrough(*label);
    } else {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(alignmentOf(style));
        label->setWordWrap((style & SS_TYPEMASK) <= SS_RIGHT);
    }
    return label;
}

} // namespace

CStaticWindow::CStaticWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(makeWidget(traits.window.style, parent.widget()), &parent, traits.window) {
    CStaticWindow::setText(traits.text);
}

void CStaticWindow::setText(const QString& text) {
    m_strText = text;
    if (!isShape(style())) {
        QString shown = text;
        shown.remove(QLatin1Char('&'));
        static_cast<QLabel*>(widget())->setText(shown);
    }
}

std::unique_ptr<CWnd> CStaticWindow::makeStandIn() const {
    return std::make_unique<CStatic>();
}

CGroupBoxWindow::CGroupBoxWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new CTitledFrame(traits.text, parent.widget()), &parent, traits.window) {
    letMouseThrough(*widget());
}

QString CGroupBoxWindow::text() const {
    return static_cast<QGroupBox*>(widget())->title();
}

void CGroupBoxWindow::setText(const QString& text) {
    static_cast<QGroupBox*>(widget())->setTitle(text);
}

} // namespace qtbackend
