#pragma once

#include <QString>
#include <QStringList>

/// The identity of a desk: which displays are connected, not how they are arranged, in which
/// order they came or at what resolution they run.
namespace Panorel::ConfigID {

/// 32 lower-case hexadecimal digits from the displays' DisplayInfo::edidUUID, in any order and
/// either case. A display that is there twice counts twice. No displays are a desk as well.
QString compute(const QStringList &edidUUIDs);

} // namespace Panorel::ConfigID
