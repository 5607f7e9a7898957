#pragma once

#include <QString>

class QFile;

/// Where the state lives.
namespace Panorel::Paths {

/// The value of PANOREL_DATA_DIR as it stands, also when it is empty (the current directory);
/// without that variable the folder "Panorel" in the user's application-data location.
QString dataDir();

/// The path of a file in the data directory. Creates the directory, for its user only, since
/// window titles are private; a failure shows when the file is used. From the folder that is the
/// program's own it takes others' rights; one that the user named stays as it is.
QString file(const QString &name);

/// Creates a missing directory, for its user only; its parents as is usual.
void makeDirectory(const QString &path);

/// Takes others' rights from an open file of the program, which may come from elsewhere.
void keepPrivate(QFile &file);

} // namespace Panorel::Paths
