#pragma once

#include <QWidget>

class QStackedWidget;

namespace Panorel {

class SegmentedControl;
class SettingsModel;

/// The tabs of the layouts window; the model says which one is open.
class LayoutsWindow : public QWidget {
    Q_OBJECT

public:
    /// One page for each LayoutsSection, in order.
    LayoutsWindow(SettingsModel &model, const std::vector<QWidget *> &pages);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void refresh();

    SettingsModel &m_model;
    SegmentedControl *m_tabs;
    QStackedWidget *m_pages;
};

} // namespace Panorel
