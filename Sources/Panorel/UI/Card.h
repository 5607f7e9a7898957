#pragma once

#include <QWidget>

class QVBoxLayout;

namespace Panorel {

/// A raised, rounded area that holds what belongs together.
class Card : public QWidget {
    Q_OBJECT

public:
    explicit Card(QWidget *parent = nullptr);

    /// Where its contents go; its margins are set.
    QVBoxLayout *body() const { return m_body; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_body;
};

} // namespace Panorel
