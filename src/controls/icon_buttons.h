#pragma once

#include <span>

class CWnd;

/// A button of a panel and the icon resource that it shows.
struct IconButton {
    int controlId;
    int icon; ///< 0: none
};

/// Show the icon on the panel's button; 0 takes the button's icon away.
void setButtonIcon(const CWnd& panel, int controlId, int icon);
void setButtonIcons(const CWnd& panel, std::span<const IconButton> buttons);
