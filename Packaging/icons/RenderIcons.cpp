// Draws an SVG file into a folder of PNG files, in the sizes and under the names that a desktop
// wants:
//     render-icons iconset FILE.svg FOLDER.iconset     from which macOS makes an icon
//     render-icons hicolor FILE.svg FOLDER             the sizes of an icon theme
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

QImage drawn(QSvgRenderer &drawing, int pixels, double margin)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter, QRectF(image.rect()).adjusted(margin, margin, -margin, -margin));
    return image;
}

/// The drawing keeps a distance from the edges, a sixteenth of the size, as its neighbours do.
bool saveIconset(QSvgRenderer &drawing, const QDir &folder)
{
    const auto saved = [&](int pixels, const QString &name) {
        return drawn(drawing, pixels, pixels / 16.0).save(folder.filePath(name));
    };
    for (const int points : {16, 32, 128, 256, 512}) {
        const QString name = QStringLiteral("icon_%1x%1%2.png").arg(points);
        if (!saved(points, name.arg(QString()))
            || !saved(2 * points, name.arg(QStringLiteral("@2x"))))
            return false;
    }
    return true;
}

bool saveTheme(QSvgRenderer &drawing, const QDir &folder, const QString &name)
{
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        const QString path = QStringLiteral("%1x%1/apps").arg(pixels);
        if (!folder.mkpath(path)
            || !drawn(drawing, pixels, 0).save(folder.filePath(path + u'/' + name)))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray form(argc == 4 ? argv[1] : "");
    if (form != "iconset" && form != "hicolor") {
        std::fprintf(stderr, "Usage: render-icons iconset|hicolor FILE.svg FOLDER\n");
        return 2;
    }
    const QString file = QFile::decodeName(argv[2]);
    const QString folder = QFile::decodeName(argv[3]);
    QSvgRenderer drawing(file);
    const auto saveAll = [&] {
        return form == "iconset"
                   ? saveIconset(drawing, folder)
                   : saveTheme(drawing, folder,
                               QFileInfo(file).completeBaseName() + QStringLiteral(".png"));
    };
    if (drawing.isValid() && QDir().mkpath(folder) && saveAll())
        return 0;
    std::fprintf(stderr, "render-icons: can't draw %s into %s\n", argv[2], argv[3]);
    return 1;
}
