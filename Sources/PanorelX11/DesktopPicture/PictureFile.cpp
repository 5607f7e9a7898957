#include "PanorelX11/DesktopPicture/PictureFile.h"

#include <QFileInfo>
#include <QImageReader>
#include <QUrl>

namespace Panorel::X11 {

std::optional<PictureFile> PictureFile::at(const QString &path)
{
    constexpr int longestSide = 32767;
    constexpr qint64 mostPixels = 128 << 20;
    const QFileInfo file(path);
    if (path.isEmpty() || !file.isFile()) // opening a pipe would wait for a writer
        return {};
    QImageReader reader(file.absoluteFilePath());
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        return {};
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide
        || qint64(size.width()) * size.height() > mostPixels)
        return {};
    return PictureFile(file.absoluteFilePath(), size);
}

QString PictureFile::uri() const
{
    return QString::fromLatin1(QUrl::fromLocalFile(m_path).toEncoded(QUrl::FullyEncoded));
}

QImage PictureFile::covering(QSize target) const
{
    QImageReader reader(m_path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const bool isTurned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize stored = isTurned ? target.transposed() : target;
    // Cut first: a long and thin picture scaled whole would be immense.
    const QSize part = stored.scaled(m_size, Qt::KeepAspectRatio).expandedTo({1, 1});
    reader.setClipRect(
        {QPoint((m_size.width() - part.width()) / 2, (m_size.height() - part.height()) / 2), part});
    reader.setScaledSize(stored);
    const QImage image = reader.read();
    return image.size() == target ? image.convertToFormat(QImage::Format_RGB32) : QImage();
}

} // namespace Panorel::X11
