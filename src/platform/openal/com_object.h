#pragma once

#include "platform/com.h"

#include <atomic>

/// The counting half of a component object: born with one reference, deletes itself with the last.
template <typename Interface> class CComObject : public Interface {
public:
    ULONG AddRef() override { return ++m_count; }
    ULONG Release() override {
        const ULONG left = --m_count;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    /// Answers QueryInterface for the object's own interface and IUnknown.
    HRESULT answerQuery(REFIID wanted, REFIID own, void** object) {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (wanted != own && wanted != IID_IUnknown) {
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }

private:
    std::atomic<ULONG> m_count = 1;
};
