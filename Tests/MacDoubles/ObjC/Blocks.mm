#include "MacDoubles/Desktop/MacDesktop.h"
#include "MacDoubles/ObjC/ObjectLedger.h"

#import <Foundation/Foundation.h>

#include <Block.h>
#include <cstdlib>
#include <cstring>
#include <mutex>

// The blocks runtime, by the public description of what compilers expect of one. It comes before
// the one that Foundation's library exports here, which never copies what this compiler makes. As
// on a Mac, a copied block keeps the objects and blocks that it captured.

namespace {

enum : int { countMask = 0xffff, isOnHeap = 1 << 24, hasHelpers = 1 << 25, isGlobal = 1 << 28 };
enum : int { fieldIsObject = 3, fieldIsBlock = 7 };

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

std::mutex lock;
int living = 0;

BlockLayout *layoutOf(const void *block)
{
    return static_cast<BlockLayout *>(const_cast<void *>(block));
}

} // namespace

namespace Panorel::MacDoubles {

int livingBlocks()
{
    const std::lock_guard guard(lock);
    return living;
}

} // namespace Panorel::MacDoubles

extern "C" {

void *_NSConcreteStackBlock[32];
void *_NSConcreteGlobalBlock[32];
static void *heapBlock[32];

void *_Block_copy(const void *block)
{
    BlockLayout *original = layoutOf(block);
    if (!original || original->flags & isGlobal)
        return original;
    BlockLayout *copy = nullptr;
    {
        const std::lock_guard guard(lock);
        if (original->flags & isOnHeap) {
            ++original->flags;
            return original;
        }
        ++living;
    }
    const unsigned long size = original->descriptor->size;
    copy = static_cast<BlockLayout *>(std::malloc(size));
    std::memcpy(static_cast<void *>(copy), original, size);
    copy->isa = heapBlock;
    copy->flags = (original->flags & ~countMask) | isOnHeap | 1;
    if (copy->flags & hasHelpers)
        copy->descriptor->copy(copy, original);
    return copy;
}

void _Block_release(const void *block)
{
    BlockLayout *layout = layoutOf(block);
    if (!layout || layout->flags & isGlobal)
        return;
    {
        const std::lock_guard guard(lock);
        if (!(layout->flags & isOnHeap)) {
            Panorel::MacDoubles::addFault(QStringLiteral("release of a block that is no copy"));
            return;
        }
        if ((--layout->flags & countMask) != 0)
            return;
        --living;
    }
    if (layout->flags & hasHelpers)
        layout->descriptor->dispose(layout);
    std::free(layout);
}

void _Block_object_assign(void *to, const void *from, const int flags)
{
    id object = id(const_cast<void *>(from));
    if (flags == fieldIsObject)
        *static_cast<id *>(to) = [object retain];
    else if (flags == fieldIsBlock)
        *static_cast<void **>(to) = _Block_copy(from);
    else
        Panorel::MacDoubles::addFault(QStringLiteral("a __block or __weak capture"));
}

void _Block_object_dispose(const void *captured, const int flags)
{
    if (flags == fieldIsObject)
        [id(const_cast<void *>(captured)) release];
    else if (flags == fieldIsBlock)
        _Block_release(captured);
}

} // extern "C"
