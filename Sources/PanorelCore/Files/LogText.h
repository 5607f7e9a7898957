#pragma once

#include <QString>

namespace Panorel {

/// Text from outside as part of a log message: line feeds and other control characters, which could
/// make it look like lines of the log, become blanks.
QString forLog(QString text);

} // namespace Panorel
