#include "controls/ease_curve_ctrl.h"

#include "engine/qx_ease_curve.h"

#include <algorithm>
#include <cmath>

BEGIN_MESSAGE_MAP(CEaseCurveCtrl, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()

namespace {

constexpr std::uint32_t BLACK = 0xFF000000U;
constexpr std::uint32_t GREEN = 0xFF00FF00U;

} // namespace

BOOL CEaseCurveCtrl::Create(LPCTSTR /*lpszClassName*/, LPCTSTR /*lpszWindowName*/, DWORD dwStyle,
                            const RECT& rect, CWnd* pParentWnd, UINT nID, void* pContext) {
    return CreateEx(WS_EX_CLIENTEDGE | WS_EX_STATICEDGE, AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW), "",
                    dwStyle, rect, pParentWnd, nID, pContext);
}

void CEaseCurveCtrl::setValue(float value) {
    const float held = value > 0.0F ? std::min(value, 1.0F) : 0.0F;
    if (held != m_fValue || !m_picture.isBegun()) {
        m_fValue = held;
        m_picture.outdate(*this);
    }
}

void CEaseCurveCtrl::draw(std::span<std::uint32_t> pixels, CSize size) const {
    const auto [width, height] = size;
    std::ranges::fill(pixels, BLACK);
    for (int x = 0; x < width; ++x) {
        const float t = static_cast<float>(x) / static_cast<float>(width);
        const float risen = qxEaseCurve(m_fValue, t);
        if (!std::isnan(risen)) { // at the foot of a curve that is a step nothing is drawn
            const int y = height - 1 - static_cast<int>(risen * static_cast<float>(height - 1));
            pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                   static_cast<std::size_t>(x)] = GREEN;
        }
    }
}

void CEaseCurveCtrl::OnPaint() {
    CPaintDC dc(this);
    m_picture.paint(dc, *this, [this](auto pixels, CSize size) { draw(pixels, size); });
}
