#include "platform/qt/controls/control_factory.h"

#include "platform/qt/controls/button_window.h"
#include "platform/qt/controls/combo_box_window.h"
#include "platform/qt/controls/custom_window.h"
#include "platform/qt/controls/edit_window.h"
#include "platform/qt/controls/list_box_window.h"
#include "platform/qt/controls/owner_draw_window.h"
#include "platform/qt/controls/progress_window.h"
#include "platform/qt/controls/slider_window.h"
#include "platform/qt/controls/static_window.h"
#include "platform/qt/controls/tab_window.h"
#include "platform/qt/controls/up_down_window.h"
#include "platform/qt/window_registry.h"
#include "platform/windows/back_end.h"

#include <algorithm>
#include <cctype>
#include <unordered_map>
#include <unordered_set>

namespace qtbackend {

namespace {

using Maker = std::unique_ptr<CWindow> (*)(CWindow&, const ControlTraits&);

template <class Kind> std::unique_ptr<CWindow> make(CWindow& parent, const ControlTraits& traits) {
    return std::make_unique<Kind>(parent, traits);
}

std::unique_ptr<CWindow> makeButton(CWindow& parent, const ControlTraits& traits) {
    switch (traits.window.style & BS_TYPEMASK) {
    case BS_GROUPBOX:
        return make<CGroupBoxWindow>(parent, traits);
    case BS_OWNERDRAW:
        return make<COwnerDrawWindow>(parent, traits);
    default:
        return make<CButtonWindow>(parent, traits);
    }
}

std::unordered_set<std::string>& registeredClasses() {
    static auto& names = *new std::unordered_set<std::string>;
    return names;
}

std::string lowered(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return name;
}

Maker makerOf(const std::string& className) {
    static const auto& makers = *new std::unordered_map<std::string, Maker>{
        {"button", &makeButton},
        {"combobox", &make<CComboBoxWindow>},
        {"edit", &make<CEditWindow>},
        {"listbox", &make<CListBoxWindow>},
        {"msctls_progress32", &make<CProgressWindow>},
        {"msctls_trackbar32", &make<CSliderWindow>},
        {"msctls_updown32", &make<CUpDownWindow>},
        {"scrollbar", &make<CScrollBarWindow>},
        {"static", &make<CStaticWindow>},
        {"systabcontrol32", &make<CTabWindow>},
    };
    const auto found = makers.find(lowered(className));
    if (found != makers.end()) {
        return found->second;
    }
    return registeredClasses().count(lowered(className)) != 0 ? &make<CCustomWindow> : nullptr;
}

} // namespace

CWindow* makeControl(CWindow& parent, const ControlTraits& traits) {
    const Maker maker = makerOf(traits.window.className);
    if (maker == nullptr) {
        return nullptr;
    }
    CWindow& made = CWindowRegistry::instance().add(maker(parent, traits));
    parent.children().push_back(&made);
    QWidget& widget = *made.widget();
    widget.setObjectName(QString::number(traits.window.id));
    made.setGeometry(traits.rect);
    if ((traits.window.style & WS_DISABLED) != 0) {
        widget.setEnabled(false);
    }
    if ((traits.window.style & WS_VISIBLE) == 0) {
        widget.hide();
    } else if (parent.widget()->isVisible()) {
        widget.show();
    }
    made.onCreated();
    return &made;
}

void registerClass(const std::string& name) {
    registeredClasses().insert(lowered(name));
}

} // namespace qtbackend

BOOL RegisterClass(const WNDCLASS* windowClass) {
    qtbackend::registerClass(windowClass->lpszClassName);
    return TRUE;
}

HWND CreateControlWindow(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, const RECT& rect,
                         HWND parent, int id) {
    qtbackend::CWindow* const parentWindow = qtbackend::CWindowRegistry::instance().find(parent);
    if (parentWindow == nullptr || parentWindow->widget() == nullptr) {
        return nullptr;
    }
    const qtbackend::ControlTraits traits{
        {id, style, className != nullptr ? className : ""},
        exStyle,
        QString::fromUtf8(text),
        QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1))};
    const qtbackend::CWindow* const made = qtbackend::makeControl(*parentWindow, traits);
    return made != nullptr ? made->handle() : nullptr;
}
