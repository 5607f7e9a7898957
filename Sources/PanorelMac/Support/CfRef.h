#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace Panorel::Mac {

/// Owns one reference to a CoreFoundation object, or none. Only .cpp files include this.
template <typename Ref> class CfRef {
public:
    CfRef() = default;
    /// Of a Create or Copy function, which gives the caller a reference of its own.
    static CfRef adopt(Ref object) { return CfRef(object); }
    /// Of a Get function, or from within another object, where the reference is borrowed.
    static CfRef share(Ref object) { return CfRef(object ? Ref(CFRetain(object)) : nullptr); }

    CfRef(const CfRef &other) : CfRef(share(other.m_object)) {}
    CfRef(CfRef &&other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    CfRef &operator=(CfRef other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~CfRef()
    {
        if (m_object)
            CFRelease(m_object);
    }

    explicit operator bool() const { return m_object; }
    Ref get() const { return m_object; }

private:
    explicit CfRef(Ref object) : m_object(object) {}

    Ref m_object = nullptr;
};

/// The type identifier that objects behind a kind of reference have.
template <typename Ref> CFTypeID cfTypeOf();
template <> inline CFTypeID cfTypeOf<CFStringRef>()
{
    return CFStringGetTypeID();
}
template <> inline CFTypeID cfTypeOf<CFArrayRef>()
{
    return CFArrayGetTypeID();
}
template <> inline CFTypeID cfTypeOf<CFDictionaryRef>()
{
    return CFDictionaryGetTypeID();
}
template <> inline CFTypeID cfTypeOf<CFNumberRef>()
{
    return CFNumberGetTypeID();
}
template <> inline CFTypeID cfTypeOf<CFBooleanRef>()
{
    return CFBooleanGetTypeID();
}
template <> inline CFTypeID cfTypeOf<CFDataRef>()
{
    return CFDataGetTypeID();
}

/// The same object, still borrowed, as what it is said to be; null where it is null or of another
/// type. Everything that comes from outside goes through this.
template <typename Ref> Ref cfCast(CFTypeRef object)
{
    return object && CFGetTypeID(object) == cfTypeOf<Ref>() ? static_cast<Ref>(object) : nullptr;
}

} // namespace Panorel::Mac
