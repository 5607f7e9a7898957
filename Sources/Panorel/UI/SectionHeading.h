#pragma once

#include <QWidget>

namespace Panorel {

/// The name of a section with a fainter note at the end of the line.
class SectionHeading : public QWidget {
    Q_OBJECT

public:
    SectionHeading(const QString &heading, const QString &note, QWidget *parent = nullptr);
};

} // namespace Panorel
