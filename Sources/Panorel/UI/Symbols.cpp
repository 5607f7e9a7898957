#include "Panorel/UI/Symbols.h"

#include <QColor>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace Panorel {

namespace {

QString fileOf(Symbol symbol)
{
    switch (symbol) {
    case Symbol::Display:
        return QStringLiteral("display");
    case Symbol::Scene:
        return QStringLiteral("scene");
    case Symbol::Plus:
        return QStringLiteral("plus");
    case Symbol::Close:
        return QStringLiteral("close");
    case Symbol::Stash:
        return QStringLiteral("stash");
    case Symbol::BringBack:
        return QStringLiteral("bring-back");
    case Symbol::Undo:
        return QStringLiteral("undo");
    case Symbol::Layouts:
        return QStringLiteral("layouts");
    case Symbol::Settings:
        return QStringLiteral("settings");
    case Symbol::Update:
        return QStringLiteral("update");
    case Symbol::Quit:
        return QStringLiteral("quit");
    case Symbol::Window:
        return QStringLiteral("window");
    }
    return {};
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
