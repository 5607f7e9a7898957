#pragma once

#include <QWidget>

namespace Panorel {

/// A laptop with a monitor beside it and three windows on them: one of the pictures that tell how
/// Panorel works, all at one scale.
class StepPicture : public QWidget {
    Q_OBJECT

public:
    enum class Step {
        InPlace,    ///< every window where its user put it
        PushedAside ///< the monitor is gone, an outline is left of it; the laptop has all windows
    };

    explicit StepPicture(Step step, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Step m_step;
};

} // namespace Panorel
