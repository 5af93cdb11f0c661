#include "controls/finite_field.h"

#include "platform/framework.h"

#include <cmath>

void exchangeFinite(CDataExchange* pDX, int controlId, float& value) {
    if (!std::isfinite(value)) {
        value = 0.0F;
    }
    DDX_Text(pDX, controlId, value);
}
