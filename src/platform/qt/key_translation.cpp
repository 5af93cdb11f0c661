#include "platform/qt/key_translation.h"

#include "platform/framework/wnd.h"
#include "platform/qt/native_event.h"
#include "platform/qt/window_registry.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <span>

namespace qtbackend {

namespace {

struct KeyPair {
    int qtKey;
    WPARAM key;
};

constexpr KeyPair KEY_PAIRS[] = {
    {Qt::Key_Tab, VK_TAB},      {Qt::Key_Backtab, VK_TAB},     {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE},   {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},        {Qt::Key_Right, VK_RIGHT},     {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Backspace, 0x08},  {Qt::Key_PageUp, 0x21},        {Qt::Key_PageDown, 0x22},
    {Qt::Key_End, 0x23},        {Qt::Key_Home, 0x24},          {Qt::Key_Insert, 0x2D},
    {Qt::Key_Delete, 0x2E},     {Qt::Key_Comma, VK_OEM_COMMA}, {Qt::Key_Period, VK_OEM_PERIOD},
};

/// What the keys of comma and full stop give with Shift, on the keyboards that differ in it.
constexpr KeyPair SHIFTED_KEY_PAIRS[] = {
    {Qt::Key_Less, VK_OEM_COMMA},
    {Qt::Key_Semicolon, VK_OEM_COMMA},
    {Qt::Key_Greater, VK_OEM_PERIOD},
    {Qt::Key_Colon, VK_OEM_PERIOD},
};

WPARAM findKey(std::span<const KeyPair> pairs, int qtKey) {
    const auto found = std::ranges::find(pairs, qtKey, &KeyPair::qtKey);
    return found != pairs.end() ? found->key : 0;
}

/// The virtual key code; 0 for a key that the framework has no use for.
WPARAM virtualKey(const QKeyEvent& event) {
    const int qtKey = event.key();
    const bool sameCode = (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) ||
                          (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || qtKey == Qt::Key_Space;
    if (sameCode) {
        return static_cast<WPARAM>(qtKey);
    }
    const WPARAM key = findKey(KEY_PAIRS, qtKey);
    const bool isShifted = (event.modifiers() & Qt::ShiftModifier) != 0;
    return key == 0 && isShifted ? findKey(SHIFTED_KEY_PAIRS, qtKey) : key;
}

/// Asks each object from the window up to its dialog. A handler may end any of the windows.
bool preTranslate(HWND window, MSG& message) {
    const CWindowRegistry& registry = CWindowRegistry::instance();
    for (HWND next = window; next != nullptr;) {
        const CWindow* const asked = registry.find(next);
        if (asked == nullptr) {
            return true; // ended on the way
        }
        const bool last = asked->widget() == nullptr || asked->widget()->isWindow();
        if (asked->object() != nullptr && asked->object()->PreTranslateMessage(&message) != FALSE) {
            return true;
        }
        next = last ? nullptr : ::GetParent(next);
    }
    return false;
}

} // namespace

bool translateKey(CWindow& window, QObject* watched, QKeyEvent& event) {
    // Qt offers a key that a control left alone to the control's parents. They have seen it on its way down.
    const QWidget* const focus = QApplication::focusWidget();
    if (focus != nullptr && CWindowRegistry::instance().find(focus) != &window) {
        return false;
    }
    const WPARAM key = virtualKey(event);
    if (key == 0 || (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0) {
        return false;
    }
    CNativeEvent native(&window, WM_KEYDOWN, watched, &event);
    MSG message{window.handle(), WM_KEYDOWN, key, MAKELONG(1, event.isAutoRepeat() ? KF_REPEAT : 0), 0, {}};
    event.accept();
    if (preTranslate(message.hwnd, message)) {
        return true;
    }
    if (window.object() == nullptr) {
        return false;
    }
    ::SendMessage(message.hwnd, WM_KEYDOWN, message.wParam, message.lParam);
    return true;
}

} // namespace qtbackend
