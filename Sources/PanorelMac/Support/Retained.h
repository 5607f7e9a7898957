#pragma once

#import <Foundation/Foundation.h>

#include <utility>

#if __has_feature(objc_arc)
#error "Compile with -fno-objc-arc: ownership is written out with Retained."
#endif

namespace Panorel::Mac {

/// Owns one Objective-C object, or none. `Pointer` is a pointer type: Retained<NSString *>. For .mm
/// files only.
template <typename Pointer> class Retained {
public:
    Retained() = default;
    /// Takes over what alloc, new or copy gave.
    static Retained adopt(Pointer object) { return Retained(object); }
    /// Keeps what anything else gave.
    static Retained share(Pointer object) { return Retained([object retain]); }

    Retained(const Retained &other) : m_object([other.m_object retain]) {}
    Retained(Retained &&other) noexcept : m_object(std::exchange(other.m_object, nil)) {}
    Retained &operator=(Retained other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Retained() { [m_object release]; }

    Pointer get() const { return m_object; }
    explicit operator bool() const { return m_object != nil; }

private:
    explicit Retained(Pointer object) : m_object(object) {}

    Pointer m_object = nil;
};

} // namespace Panorel::Mac
