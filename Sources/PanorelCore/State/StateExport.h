#pragma once

#include "PanorelCore/State/SavedState.h"

#include <QByteArray>
#include <QString>

#include <stdexcept>

/// The whole saved state as one file, to back up or to carry to another computer. The same state
/// gives the same bytes, so the file says nothing of when or where it was written.
namespace Panorel::StateExport {

/// Why nothing was exported or imported, in a sentence for the user.
class Failure : public std::runtime_error {
public:
    explicit Failure(const QString &reason) : std::runtime_error(reason.toStdString()) {}

    QString reason() const { return QString::fromStdString(what()); }
};

/// Throws EncodingError where a value has no JSON form.
QByteArray encode(const SavedState &state);

/// All or nothing. Throws Failure where the bytes are no export, are damaged, or were written by
/// a newer version, whose meaning can't be known.
SavedState decode(const QByteArray &bytes);

/// Replaces the file whole, for its user only. Throws Failure.
void write(const QString &path, const SavedState &state);

/// As decode(); a file that can't be read, is no plain file or is absurdly large is a Failure too.
SavedState read(const QString &path);

} // namespace Panorel::StateExport
