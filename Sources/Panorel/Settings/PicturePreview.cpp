#include "Panorel/Settings/PicturePreview.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Symbols.h"
#include "Panorel/UI/Theme.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

namespace Panorel {

namespace {

constexpr QSize previewSize{96, 54};

} // namespace

PicturePreview::PicturePreview(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

bool PicturePreview::load(const QString &path)
{
    m_picture = {};
    update();
    if (!QFileInfo(path).isFile()) // reading from a pipe would wait for ever
        return false;
    QImageReader reader(path);
    reader.setAutoTransform(true);
    // Twice the size for dense displays, and never the whole of a huge picture.
    const QSize size = reader.size();
    if (size.isValid())
        reader.setScaledSize(size.scaled(previewSize * 2, Qt::KeepAspectRatioByExpanding));
    m_picture = QPixmap::fromImage(reader.read());
    return !m_picture.isNull();
}

QSize PicturePreview::sizeHint() const
{
    return previewSize;
}

void PicturePreview::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(frame, Metrics::controlRadius, Metrics::controlRadius);
    painter.fillPath(outline, theme.screen);
    if (m_picture.isNull()) {
        constexpr int size = Metrics::symbolSize;
        drawSymbol(painter, Symbol::Picture,
                   QRectF((width() - size) / 2.0, (height() - size) / 2.0, size, size), theme.off);
    } else {
        QRectF whole({},
                     QSizeF(m_picture.size()).scaled(frame.size(), Qt::KeepAspectRatioByExpanding));
        whole.moveCenter(frame.center());
        painter.setClipPath(outline);
        painter.drawPixmap(whole, m_picture, QRectF(m_picture.rect()));
        painter.setClipping(false);
    }
    painter.setPen(QPen(theme.line, 1));
    painter.drawPath(outline);
}

} // namespace Panorel
