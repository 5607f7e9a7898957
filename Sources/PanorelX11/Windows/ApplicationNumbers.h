#pragma once

#include "PanorelPorts/ProcessIdentifier.h"

#include <QHash>
#include <QString>

namespace Panorel::X11 {

/// Numbers for applications, which on X11 are not processes: one number for each id, the same
/// for as long as the program runs, also after all windows of the application were closed.
class ApplicationNumbers {
public:
    /// This program's own.
    static constexpr ProcessIdentifier own = 1;

    ProcessIdentifier numberOf(const QString &id)
    {
        const auto known = m_numbers.constFind(id);
        if (known != m_numbers.constEnd())
            return *known;
        const auto number = own + 1 + ProcessIdentifier(m_numbers.size());
        m_numbers.insert(id, number);
        return number;
    }

private:
    QHash<QString, ProcessIdentifier> m_numbers;
};

} // namespace Panorel::X11
