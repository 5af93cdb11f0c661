#include "platform/qt/controls/static_window.h"

#include "platform/framework/controls/static.h"

#include <QGroupBox>
#include <QLabel>

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

StaticWindow::StaticWindow(Window& parent, const ControlTraits& traits)
    : Window(makeWidget(traits.window.style, parent.widget()), &parent, traits.window) {
    StaticWindow::setText(traits.text);
}

void StaticWindow::setText(const QString& text) {
    m_text = text;
    if (!isShape(style())) {
        QString shown = text;
        shown.remove(QLatin1Char('&'));
        static_cast<QLabel*>(widget())->setText(shown);
    }
}

std::unique_ptr<CWnd> StaticWindow::makeStandIn() const {
    return std::make_unique<CStatic>();
}

GroupBoxWindow::GroupBoxWindow(Window& parent, const ControlTraits& traits)
    : Window(new QGroupBox(traits.text, parent.widget()), &parent, traits.window) {
    letMouseThrough(*widget());
}

QString GroupBoxWindow::text() const {
    return static_cast<QGroupBox*>(widget())->title();
}

void GroupBoxWindow::setText(const QString& text) {
    static_cast<QGroupBox*>(widget())->setTitle(text);
}

} // namespace qtbackend
