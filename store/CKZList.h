// Ordered, non-owning list of object pointers, as the store hands out table rows.
#pragma once

#include <cstddef>
#include <iterator>
#include <list>

template <class T>
class CKZList;

// Ordered doubly linked list of pointers. Destroying the list frees its nodes, never the objects.
template <class T>
class CKZList<T*> {
public:
    using iterator = typename std::list<T*>::iterator;
    using const_iterator = typename std::list<T*>::const_iterator;

    // The block size of the original allocator has no meaning here; it is accepted for callers.
    explicit CKZList(int blockSize = 10) { (void)blockSize; }

    int GetCount() const { return static_cast<int>(m_items.size()); }
    bool IsEmpty() const { return m_items.empty(); }
    void AddTail(T* item) { m_items.push_back(item); }
    void AddHead(T* item) { m_items.push_front(item); }
    void RemoveAll() { m_items.clear(); }

    // Element by index, or null when the index is outside the list.
    T* GetAt(int index) const {
        if (index < 0 || index >= GetCount()) return nullptr;
        return *std::next(m_items.begin(), index);
    }
    // Unlinks the node at `pos` and returns the position after it.
    iterator RemoveAt(iterator pos) { return m_items.erase(pos); }
    bool RemoveAt(int index) {
        if (index < 0 || index >= GetCount()) return false;
        m_items.erase(std::next(m_items.begin(), index));
        return true;
    }

    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

private:
    std::list<T*> m_items;
};
