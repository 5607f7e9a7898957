#pragma once

#include "Panorel/UI/Sheet.h"

namespace Panorel {

/// Asked before a window with changes closes. Escape and Cancel choose nothing. Deletes itself.
class UnsavedChangesDialog : public Sheet {
    Q_OBJECT

public:
    UnsavedChangesDialog(const QString &sceneName, QWidget *parent);

Q_SIGNALS:
    void saveChosen();
    void discardChosen();
};

} // namespace Panorel
