#pragma once

#include <mirelfrw7/export.h>

#include <cstddef>

namespace mirelfrw7 {

// The first base of every element. Its one byte, the dynamic flag, tells that the object came from this
// class's operator new: a parent's child list deletes such children and only detaches the others (members
// and stack objects). The flag passes from operator new to the constructor through a thread-local, so
// allocation and construction must follow each other on one thread; any thread will do.
class MIRELFRW7_API CBase {
public:
    CBase();
    CBase(CBase const&);
    CBase& operator=(CBase const&) { return *this; }
    virtual ~CBase();

    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* where) noexcept { return where; }
    static void operator delete(void* p) noexcept;

    bool IsDynamic() const { return m_dynamic; }
    void SetDynamic(bool dynamic) { m_dynamic = dynamic; }

private:
    bool m_dynamic;
};

} // namespace mirelfrw7
