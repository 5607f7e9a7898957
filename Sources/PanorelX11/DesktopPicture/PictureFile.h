#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace Panorel::X11 {

/// A file that says it is a picture of a reasonable size; what follows its header is unread.
class PictureFile {
public:
    /// Absent: no file there, none that may be read, no picture in a format that is known, or one
    /// so large that decoding it would take the machine's memory.
    static std::optional<PictureFile> at(const QString &path);

    /// Absolute.
    const QString &path() const { return m_path; }

    /// As a "file:" URI, with every character escaped but plain ASCII: no quotes, no backslashes,
    /// no line ends.
    QString uri() const;

    /// The middle of the picture in the shape of `target`, scaled to `target`, in 32-bit RGB; null
    /// where the file turns out to be damaged.
    QImage covering(QSize target) const;

private:
    PictureFile(QString path, QSize size) : m_path(std::move(path)), m_size(size) {}

    QString m_path;
    QSize m_size; ///< as stored, before it is turned as the camera says
};

} // namespace Panorel::X11
