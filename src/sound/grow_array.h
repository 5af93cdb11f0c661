#pragma once

#include <algorithm>
#include <memory>
#include <type_traits>

/// A small growable array of pointer-sized elements. Owns its storage and never what its elements point to:
/// whoever removes a pointer to an owned object deletes the object.
template <typename T> class CGrowArray {
    static_assert(sizeof(T) <= sizeof(void*) && std::is_trivially_copyable_v<T>);

public:
    CGrowArray() = default;
    virtual ~CGrowArray() = default;
    CGrowArray(const CGrowArray&) = delete;
    CGrowArray& operator=(const CGrowArray&) = delete;

    int getCount() const { return m_nCount; }
    int getCapacity() const { return m_nCapacity; }
    /// `index` from 0 to getCount() - 1.
    T operator[](int index) const { return m_pStorage[static_cast<std::size_t>(index)]; }

    T* begin() const { return m_pStorage.get(); }
    T* end() const { return m_pStorage.get() + m_nCount; }

    /// A full array doubles its storage, from nothing to one element.
    void append(T element) {
        if (m_nCount == m_nCapacity) {
            grow(m_nCapacity == 0 ? 1 : m_nCapacity * 2);
        }
        m_pStorage[static_cast<std::size_t>(m_nCount++)] = element;
    }

    /// Shifts the later elements down. An index outside the array is ignored.
    void removeAt(int index) {
        if (index < 0 || index >= m_nCount) {
            return;
        }
        std::copy(begin() + index + 1, end(), begin() + index);
        --m_nCount;
    }

private:
    void grow(int capacity) {
        auto storage = std::make_unique<T[]>(static_cast<std::size_t>(capacity));
        std::copy(begin(), end(), storage.get());
        m_pStorage = std::move(storage);
        m_nCapacity = capacity;
    }

    std::unique_ptr<T[]> m_pStorage;
    int m_nCount = 0;
    int m_nCapacity = 0;
};
