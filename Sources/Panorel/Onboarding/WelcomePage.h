#pragma once

#include <QWidget>

namespace Panorel {

/// What Panorel is for.
class WelcomePage : public QWidget {
    Q_OBJECT

public:
    explicit WelcomePage(QWidget *parent = nullptr);
};

} // namespace Panorel
