#pragma once

#include <QString>

/// Where the state lives.
namespace Panorel::Paths {

/// The value of PANOREL_DATA_DIR as it stands, also when it is empty (the current directory);
/// without that variable the folder "Panorel" in the user's application-data location.
QString dataDir();

/// The path of a file in the data directory. Creates the directory, for its user only, since
/// window titles are private; a failure shows when the file is used.
QString file(const QString &name);

} // namespace Panorel::Paths
