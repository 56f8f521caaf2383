#pragma once

#include <memory>

namespace mirelfrw7 {

// The model a handler uses: one given by the application, not owned, or its own default, owned here.
template <class T>
class CHolderPointer {
public:
    explicit CHolderPointer(std::unique_ptr<T> fallback)
        : m_default(std::move(fallback)), m_ptr(m_default.get()) {}

    // Null goes back to the default.
    void Set(T* ptr) { m_ptr = ptr ? ptr : m_default.get(); }
    T* Get() const { return m_ptr; }
    T* operator->() const { return m_ptr; }

private:
    std::unique_ptr<T> m_default;
    T* m_ptr;
};

} // namespace mirelfrw7
