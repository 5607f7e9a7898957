#include "Panorel/UI/Symbols.h"

#include <QColor>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <array>

namespace Panorel {

namespace {

constexpr std::array files{
    "display",    "scene",    "plus",         "close",         "stash", "bring-back",
    "undo",       "layouts",  "settings",     "update",        "quit",  "window",
    "general",    "keyboard", "clock",        "info",          "rules", "trash",
    "edit",       "play",     "calendar",     "picture",       "check", "warning",
    "permission", "more",     "chevron-down", "chevron-right", "redo",
};
static_assert(files.size() == std::size_t(Symbol::Redo) + 1);

QString fileOf(Symbol symbol)
{
    return QLatin1String(files.at(std::size_t(symbol)));
}

} // namespace

void drawSymbol(QPainter &painter, Symbol symbol, const QRectF &area, const QColor &color)
{
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(fileOf(symbol)));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no symbol %s", qPrintable(file.fileName()));
    QByteArray drawing = file.readAll();
    drawing.replace("currentColor", color.name().toLatin1());
    QSvgRenderer(drawing).render(&painter, area);
}

} // namespace Panorel
