#pragma once

#include <mirel7/export.h>

#include <atomic>
#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace mirel7 {

// The reference-counted base of the base layer's shared objects (pictures, locks, runners...).
//
// The dynamic flag tells that the object came from this class's operator new, so that it may be deleted
// when its count drops; an object on the stack or held as a member has it clear and is never deleted by
// the count. The flag travels from operator new to the constructor through a thread-local, so objects are
// made safely on worker threads too, as long as allocation and construction happen on the same thread.
//
// The count is atomic: a runner's last reference may be dropped on its worker thread while the GUI thread
// holds another, and whichever thread drops the last one deletes the object.
//
// AddRef and Release are deliberately not virtual: interfaces such as ILock have a Release() of their own
// (unlocking), and mirel_ptr reaches the count through this class explicitly.
class MIREL7_API CBase {
public:
    CBase();
    CBase(CBase const&);
    CBase& operator=(CBase const&) { return *this; }
    virtual ~CBase();

    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* where) noexcept { return where; }
    static void operator delete(void* p) noexcept;

    int AddRef() { return m_refCount.fetch_add(1, std::memory_order_relaxed) + 1; }
    // Subtracts one from a count above 0; at 0, before or after, hands the object to DeleteBase and answers
    // the count, so the caller must not touch the object once it answered 0.
    int Release();

    int GetRefCount() const { return m_refCount.load(std::memory_order_relaxed); }
    bool IsDynamic() const { return m_dynamic; }
    void SetDynamic(bool dynamic) { m_dynamic = dynamic; }

private:
    std::atomic<int> m_refCount{0};
    bool m_dynamic;
};

// Ends an object whose count reached 0. Only dynamic objects are deleted: deleting a member or a stack
// object would corrupt memory, so for those the call does nothing.
MIREL7_API void DeleteBase(CBase* object);

// A counting pointer: the pointer and whether it holds a reference. It counts only dynamic objects, so it can
// also point at members and stack objects without ever deleting them.
template <class T>
class mirel_ptr {
public:
    mirel_ptr() = default;
    mirel_ptr(std::nullptr_t) {}
    mirel_ptr(T* p) : m_ptr(p), m_counted(p && AsBase(p)->IsDynamic()) {
        if (m_counted) AsBase(m_ptr)->AddRef();
    }
    mirel_ptr(mirel_ptr const& other) : m_ptr(other.m_ptr), m_counted(other.m_counted) {
        if (m_counted) AsBase(m_ptr)->AddRef();
    }
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    mirel_ptr(mirel_ptr<U> const& other) : mirel_ptr(other.get()) {}
    mirel_ptr(mirel_ptr&& other) noexcept
        : m_ptr(std::exchange(other.m_ptr, nullptr)), m_counted(std::exchange(other.m_counted, false)) {}
    ~mirel_ptr() { reset(); }

    mirel_ptr& operator=(mirel_ptr const& other) {
        if (this != &other) mirel_ptr(other).swap(*this);
        return *this;
    }
    mirel_ptr& operator=(mirel_ptr&& other) noexcept {
        if (this != &other) mirel_ptr(std::move(other)).swap(*this);
        return *this;
    }

    void reset() {
        T* p = std::exchange(m_ptr, nullptr);
        if (p && std::exchange(m_counted, false)) AsBase(p)->Release();
    }
    void swap(mirel_ptr& other) noexcept {
        std::swap(m_ptr, other.m_ptr);
        std::swap(m_counted, other.m_counted);
    }

    T* get() const { return m_ptr; }
    T* operator->() const { return m_ptr; }
    T& operator*() const { return *m_ptr; }
    explicit operator bool() const { return m_ptr != nullptr; }
    bool counted() const { return m_counted; }

    friend bool operator==(mirel_ptr const& a, mirel_ptr const& b) { return a.m_ptr == b.m_ptr; }
    friend bool operator==(mirel_ptr const& a, std::nullptr_t) { return a.m_ptr == nullptr; }

private:
    static CBase* AsBase(T* p) { return static_cast<CBase*>(p); }

    T* m_ptr = nullptr;
    bool m_counted = false;
};

} // namespace mirel7
