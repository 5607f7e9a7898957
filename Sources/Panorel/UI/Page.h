#pragma once

#include <QScrollArea>

class QHBoxLayout;
class QVBoxLayout;

namespace Panorel {

class RowCard;

/// A page of a window: its title, and below it cards under headings. It scrolls, and however wide
/// the window is, lines stay short enough to be read.
class Page : public QScrollArea {
    Q_OBJECT

public:
    explicit Page(const QString &title, QWidget *parent = nullptr);

    /// A control at the end of the title's line.
    void addToHeader(QWidget *control);

    /// An empty card below what is there, under a heading unless that is empty.
    RowCard *addCard(const QString &heading = {});
    /// Anything else, over the whole width.
    void addWidget(QWidget *widget);
    /// Takes the room that is left, for an empty state in the middle of it.
    void addFilling(QWidget *widget);

private:
    QHBoxLayout *m_header;
    QVBoxLayout *m_contents;
};

} // namespace Panorel
