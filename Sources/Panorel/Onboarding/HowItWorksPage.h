#pragma once

#include <QWidget>

namespace Panorel {

/// A display goes and comes back, in three pictures.
class HowItWorksPage : public QWidget {
    Q_OBJECT

public:
    explicit HowItWorksPage(QWidget *parent = nullptr);
};

} // namespace Panorel
