#pragma once

#include "platform/framework/message_thunks.h"
#include "platform/windows/control_messages.h"

#define afx_msg

struct AFX_MSGMAP_ENTRY {
    UINT nMessage = WM_NULL; ///< WM_NULL ends a map
    UINT nCode = 0;          ///< notification code of a control
    UINT nID = 0;            ///< first and last control id
    UINT nLastID = 0;
    AFX_THUNK pfn = nullptr;
};

/// One class's handlers and the way to those of its base class.
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)() = nullptr;
    const AFX_MSGMAP_ENTRY* lpEntries = nullptr;
};

#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                               \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                                      \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                                        \
        using ThisClass [[maybe_unused]] = theClass;                                                         \
        using TheBaseClass = baseClass;                                                                      \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    AFX_MSGMAP_ENTRY {}                                                                                      \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP messageMap{&TheBaseClass::GetThisMessageMap, &messageEntries[0]};                \
    return &messageMap;                                                                                      \
    }

// Commands, notifications and messages of one's own; memberFxn reads &CTheClass::OnSomething.
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn)                                                 \
    AFX_MSGMAP_ENTRY{WM_COMMAND, static_cast<UINT>(wNotifyCode), static_cast<UINT>(id),                      \
                     static_cast<UINT>(idLast), &afx::callCommand<memberFxn>},
#define ON_CONTROL(wNotifyCode, id, memberFxn) ON_CONTROL_RANGE(wNotifyCode, id, id, memberFxn)
#define ON_COMMAND(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                           \
    AFX_MSGMAP_ENTRY{WM_COMMAND + WM_REFLECT_BASE, static_cast<UINT>(wNotifyCode), 0, 0,                     \
                     &afx::callCommand<memberFxn>},
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                                \
    AFX_MSGMAP_ENTRY{WM_NOTIFY, static_cast<UINT>(wNotifyCode), static_cast<UINT>(id),                       \
                     static_cast<UINT>(id), &afx::callNotify<memberFxn>},
#define ON_MESSAGE(message, memberFxn)                                                                       \
    AFX_MSGMAP_ENTRY{static_cast<UINT>(message), 0, 0, 0, &afx::callMessage<memberFxn>},

// Messages of the window system; each runs the member function of the customary name.
#define ON_WM_CLOSE() AFX_MSGMAP_ENTRY{WM_CLOSE, 0, 0, 0, &afx::callPlain<&ThisClass::OnClose>},
#define ON_WM_PAINT() AFX_MSGMAP_ENTRY{WM_PAINT, 0, 0, 0, &afx::callPlain<&ThisClass::OnPaint>},
#define ON_WM_HSCROLL() AFX_MSGMAP_ENTRY{WM_HSCROLL, 0, 0, 0, &afx::callScroll<&ThisClass::OnHScroll>},
#define ON_WM_DRAWITEM() AFX_MSGMAP_ENTRY{WM_DRAWITEM, 0, 0, 0, &afx::callDrawItem<&ThisClass::OnDrawItem>},
#define ON_WM_LBUTTONDOWN()                                                                                  \
    AFX_MSGMAP_ENTRY{WM_LBUTTONDOWN, 0, 0, 0, &afx::callMouse<&ThisClass::OnLButtonDown>},
#define ON_WM_LBUTTONUP() AFX_MSGMAP_ENTRY{WM_LBUTTONUP, 0, 0, 0, &afx::callMouse<&ThisClass::OnLButtonUp>},
#define ON_WM_RBUTTONDOWN()                                                                                  \
    AFX_MSGMAP_ENTRY{WM_RBUTTONDOWN, 0, 0, 0, &afx::callMouse<&ThisClass::OnRButtonDown>},
#define ON_WM_RBUTTONUP() AFX_MSGMAP_ENTRY{WM_RBUTTONUP, 0, 0, 0, &afx::callMouse<&ThisClass::OnRButtonUp>},
#define ON_WM_MOUSEMOVE() AFX_MSGMAP_ENTRY{WM_MOUSEMOVE, 0, 0, 0, &afx::callMouse<&ThisClass::OnMouseMove>},
#define ON_WM_MOUSEWHEEL()                                                                                   \
    AFX_MSGMAP_ENTRY{WM_MOUSEWHEEL, 0, 0, 0, &afx::callWheel<&ThisClass::OnMouseWheel>},
#define ON_WM_TIMER() AFX_MSGMAP_ENTRY{WM_TIMER, 0, 0, 0, &afx::callTimer<&ThisClass::OnTimer>},
#define ON_WM_KEYDOWN() AFX_MSGMAP_ENTRY{WM_KEYDOWN, 0, 0, 0, &afx::callKey<&ThisClass::OnKeyDown>},
