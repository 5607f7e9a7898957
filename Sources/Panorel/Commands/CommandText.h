#pragma once

#include "Panorel/Commands/Command.h"

namespace Panorel {

/// The result of a verb as a person reads it in a terminal, ending in a line feed. In English, as
/// the log is. Characters of titles and names that a terminal would act on are shown as "?".
QString textOf(const CommandRequest &request, const QJsonObject &result);

} // namespace Panorel
