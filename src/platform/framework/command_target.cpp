#include "platform/framework/command_target.h"

namespace {

template <class Matches> const AFX_MSGMAP_ENTRY* findEntry(const AFX_MSGMAP* map, Matches matches) {
    for (; map != nullptr; map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr) {
        for (const auto* entry = map->lpEntries; entry->nMessage != WM_NULL; ++entry) {
            if (matches(*entry)) {
                return entry;
            }
        }
    }
    return nullptr;
}

} // namespace

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY END;
    static const AFX_MSGMAP MAP{nullptr, &END};
    return &MAP;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT message) const {
    return findEntry(GetMessageMap(),
                     [message](const AFX_MSGMAP_ENTRY& entry) { return entry.nMessage == message; });
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindCommandEntry(UINT message, UINT code, UINT id) const {
    return findEntry(GetMessageMap(), [=](const AFX_MSGMAP_ENTRY& entry) {
        return entry.nMessage == message && entry.nCode == code && entry.nID <= id && id <= entry.nLastID;
    });
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, void*) {
    const auto* notify = static_cast<const AFX_NOTIFY*>(pExtra);
    const UINT message = notify != nullptr ? WM_NOTIFY : WM_COMMAND;
    const AFX_MSGMAP_ENTRY* entry = FindCommandEntry(message, static_cast<UINT>(nCode), nID);
    if (entry == nullptr) {
        return FALSE;
    }
    BOOL handled = TRUE;
    entry->pfn(*this, AFX_MESSAGE{message, nID, 0, 0, notify}, handled);
    return handled;
}
