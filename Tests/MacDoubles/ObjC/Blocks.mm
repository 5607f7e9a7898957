#import <Foundation/Foundation.h>

#include <Block.h>
#include <cstdlib>
#include <cstring>

// The blocks runtime, by the public description of what compilers expect of one. It comes before
// the one that Foundation's library exports here, which never copies what this compiler makes. As
// on a Mac, a copied block keeps the values that it captured; objects it should not capture.

namespace {

enum : int { countMask = 0xffff, isOnHeap = 1 << 24, hasHelpers = 1 << 25, isGlobal = 1 << 28 };

struct Descriptor {
    unsigned long reserved, size;
    void (*copy)(void *to, const void *from);
    void (*dispose)(const void *block);
};

struct BlockLayout {
    void *isa;
    int flags, reserved;
    void (*invoke)();
    Descriptor *descriptor;
};

} // namespace

extern "C" {

void *_NSConcreteStackBlock[32];
void *_NSConcreteGlobalBlock[32];
static void *heapBlock[32];

void *_Block_copy(const void *block)
{
    auto *original = static_cast<BlockLayout *>(const_cast<void *>(block));
    if (original->flags & isGlobal)
        return original;
    if (original->flags & isOnHeap) {
        ++original->flags;
        return original;
    }
    const unsigned long size = original->descriptor->size;
    auto *copy = static_cast<BlockLayout *>(std::malloc(size));
    std::memcpy(static_cast<void *>(copy), original, size);
    copy->isa = heapBlock;
    copy->flags = (original->flags & ~countMask) | isOnHeap | 1;
    if (copy->flags & hasHelpers)
        copy->descriptor->copy(copy, original);
    return copy;
}

void _Block_release(const void *block)
{
    auto *layout = static_cast<BlockLayout *>(const_cast<void *>(block));
    if (layout->flags & isGlobal || (--layout->flags & countMask) != 0)
        return;
    if (layout->flags & hasHelpers)
        layout->descriptor->dispose(layout);
    std::free(layout);
}

} // extern "C"
