#include "Panorel/Onboarding/StepPicture.h"

#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace Panorel {

namespace {

constexpr double scale = 0.055;
constexpr int frameLine = 1; ///< of air that the schematic keeps on each side

constexpr Rect deskFrame{0, 0, 3200, 1280};
constexpr Rect laptopFrame{0, 480, 1280, 800};
constexpr Rect monitorFrame{1280, 0, 1920, 1280};
constexpr Rect mailFrame{90, 600, 640, 520};
constexpr Rect editorFrame{1390, 120, 820, 1000};
constexpr Rect browserFrame{2290, 240, 800, 860};

QSize sizeOf(const Rect &frame)
{
    return QSize(int(frame.width * scale), int(frame.height * scale))
           + QSize(2 * frameLine, 2 * frameLine);
}

DisplayInfo display(const Rect &frame, bool isBuiltin)
{
    DisplayInfo info;
    info.frame = info.visibleFrame = frame;
    info.isBuiltin = isBuiltin;
    return info;
}

/// The frames front to back.
std::vector<WindowRecord> windows(const std::vector<Rect> &frames)
{
    std::vector<WindowRecord> records;
    for (const Rect &frame : frames) {
        WindowRecord record;
        record.frame = frame;
        record.zOrder = qint64(records.size());
        records.push_back(record);
    }
    return records;
}

/// Nothing to see: which programs they are is beside the point here.
QIcon noIcon(const QString &)
{
    QPixmap pixmap(1, 1);
    pixmap.fill(Qt::transparent);
    return QIcon(pixmap);
}

} // namespace

StepPicture::StepPicture(Step step, QWidget *parent) : QWidget(parent), m_step(step)
{
    const DisplayInfo laptop = display(laptopFrame, true);
    auto *schematic = new DisplaySchematic;
    schematic->setIconOf(noIcon);
    if (step == Step::InPlace) {
        schematic->setDisplays({laptop, display(monitorFrame, false)});
        schematic->setWindows(windows({mailFrame, editorFrame, browserFrame}));
        schematic->setFixedSize(sizeOf(deskFrame));
    } else {
        schematic->setDisplays({laptop});
        schematic->setWindows(
            windows({{430, 560, 780, 640}, {260, 520, 800, 640}, {60, 600, 640, 520}}));
        schematic->setFixedSize(sizeOf(laptopFrame));
    }
    setFixedSize(sizeOf(deskFrame));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(schematic, 0, Qt::AlignLeft | Qt::AlignBottom);
}

void StepPicture::paintEvent(QPaintEvent *)
{
    if (m_step == Step::InPlace)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::of(palette()).border, 1.25, Qt::DashLine));
    const QRectF monitor(monitorFrame.x * scale, monitorFrame.y * scale, monitorFrame.width * scale,
                         monitorFrame.height * scale);
    painter.drawRoundedRect(monitor.adjusted(2, 2, 0, 0), Metrics::tight, Metrics::tight);
}

} // namespace Panorel
