#pragma once

#include <QDialog>

namespace Panorel {

/// Asked before a window with changes closes. Escape and Cancel choose nothing. Deletes itself.
class UnsavedChangesDialog : public QDialog {
    Q_OBJECT

public:
    UnsavedChangesDialog(const QString &sceneName, QWidget *parent);

Q_SIGNALS:
    void saveChosen();
    void discardChosen();
};

} // namespace Panorel
