#pragma once

#include <QDialog>

namespace Panorel {

/// A question or a form over a window. It is as wide as it says, and as high as its contents are
/// at that width, also when they or the font change while it is open: a window alone takes no heed
/// of how high text becomes where it is wrapped. Deletes itself when it closes.
class Sheet : public QDialog {
    Q_OBJECT

public:
    /// Wider where the contents ask for more.
    explicit Sheet(int width, QWidget *parent = nullptr);

    void setVisible(bool isVisible) override;

protected:
    bool event(QEvent *event) override;

private:
    void fit();

    int m_width;
};

} // namespace Panorel
