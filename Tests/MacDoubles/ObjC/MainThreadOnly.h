#pragma once

#include "MacDoubles/Desktop/MacDesktop.h"

#import <Foundation/Foundation.h>

namespace Panorel::MacDoubles {

/// For methods that the system allows on the main thread alone: `expectMainThread(_cmd)`.
inline void expectMainThread(SEL method)
{
    if (!isMainThread())
        addFault(QString::fromLatin1(sel_getName(method))
                 + QStringLiteral(" called off the main thread"));
}

} // namespace Panorel::MacDoubles
