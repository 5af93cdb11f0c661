#pragma once

#include "platform/framework/message_map.h"

/// The root of the framework's objects.
class CObject {
public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject() = default;
};

/// An object that receives commands through message maps.
class CCmdTarget : public CObject {
public:
    /// Looks the command or notification up in the maps of this object, the most derived class first, and
    /// runs its handler. nCode: the notification code; pExtra: the AFX_NOTIFY of a WM_NOTIFY, null for
    /// WM_COMMAND. FALSE when nobody took it.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    /// The entry for a window message, or null.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message) const;
    /// The entry for a notification code of a control, or null.
    const AFX_MSGMAP_ENTRY* FindCommandEntry(UINT message, UINT code, UINT id) const;
};
