#pragma once

class CDataExchange;

/// DDX_Text of a number that a host's record may hold and a field could not read back, such as one that is
/// not a number: it becomes 0 and is shown as 0.
void exchangeFinite(CDataExchange* pDX, int controlId, float& value);
