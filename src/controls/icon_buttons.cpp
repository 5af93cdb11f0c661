#include "controls/icon_buttons.h"

#include "platform/framework.h"

void setButtonIcon(const CWnd& panel, int controlId, int icon) {
    auto* const button = static_cast<CButton*>(panel.GetDlgItem(controlId));
    button->SetIcon(icon != 0 ? AfxGetApp()->LoadIcon(static_cast<UINT>(icon)) : nullptr);
}

void setButtonIcons(const CWnd& panel, std::span<const IconButton> buttons) {
    for (const IconButton& button : buttons) {
        setButtonIcon(panel, button.controlId, button.icon);
    }
}
