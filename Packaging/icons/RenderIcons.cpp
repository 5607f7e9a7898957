// Draws an SVG file into a folder of PNG files, in the sizes and under the names from which macOS
// makes an icon: render-icons FILE.svg FOLDER.iconset
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

/// The drawing keeps a distance from the edges, a sixteenth of the size, as its neighbours do.
QImage drawn(QSvgRenderer &drawing, int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const double margin = pixels / 16.0;
    drawing.render(&painter, QRectF(image.rect()).adjusted(margin, margin, -margin, -margin));
    return image;
}

bool saveAll(QSvgRenderer &drawing, const QDir &folder)
{
    for (const int points : {16, 32, 128, 256, 512}) {
        const QString name = QStringLiteral("icon_%1x%1%2.png").arg(points);
        if (!drawn(drawing, points).save(folder.filePath(name.arg(QString())))
            || !drawn(drawing, 2 * points).save(folder.filePath(name.arg(QStringLiteral("@2x")))))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "Usage: render-icons FILE.svg FOLDER.iconset\n");
        return 2;
    }
    QSvgRenderer drawing(QFile::decodeName(argv[1]));
    const QString folder = QFile::decodeName(argv[2]);
    if (drawing.isValid() && QDir().mkpath(folder) && saveAll(drawing, folder))
        return 0;
    std::fprintf(stderr, "render-icons: can't draw %s into %s\n", argv[1], argv[2]);
    return 1;
}
