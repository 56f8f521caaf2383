#pragma once

#include <mirel7/base.h>

namespace mirel7 {

// A lock shared between threads, made by the system object. Its Release() unlocks; the reference count
// of CBase is reached through mirel_ptr, which calls CBase::Release explicitly.
class MIREL7_API ILock : public CBase {
public:
    virtual void Acquire() = 0;
    virtual void Release() = 0;
};

// A value guarded by an optional lock: without one it is a plain value for single-threaded use.
template <class T>
class LockedValue {
public:
    LockedValue() = default;
    explicit LockedValue(mirel_ptr<ILock> lock, T value = T{})
        : m_lock(std::move(lock)), m_value(std::move(value)) {}

    T Get() const {
        Guard guard(m_lock.get());
        return m_value;
    }
    void Set(T value) {
        Guard guard(m_lock.get());
        m_value = std::move(value);
    }
    ILock* GetLock() const { return m_lock.get(); }

private:
    class Guard {
    public:
        explicit Guard(ILock* lock) : m_lock(lock) {
            if (m_lock) m_lock->Acquire();
        }
        ~Guard() {
            if (m_lock) m_lock->Release();
        }
        Guard(Guard const&) = delete;
        Guard& operator=(Guard const&) = delete;

    private:
        ILock* m_lock;
    };

    mirel_ptr<ILock> m_lock;
    T m_value{};
};

} // namespace mirel7
