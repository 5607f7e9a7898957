#pragma once

#include "Panorel/Settings/SettingsEnvironment.h"
#include "Panorel/UI/Page.h"

namespace Panorel {

class SettingsModel;
class TextLabel;
class Toggle;
class UpdaterCenter;

/// Which version this is, what it has done so far, updates, and whose work is in it.
class AboutPane : public Page {
    Q_OBJECT

public:
    /// Model and updater must outlive it. Null: there is no updater.
    AboutPane(SettingsModel &model, UpdaterCenter *updater,
              const std::vector<LinkedLibrary> &libraries, QWidget *parent = nullptr);

private:
    void addProgram();
    void addUsage();
    void addUpdates();
    void addLicences(const std::vector<LinkedLibrary> &libraries);
    void refresh();

    SettingsModel &m_model;
    UpdaterCenter *m_updater;
    TextLabel *m_restored = nullptr;
    TextLabel *m_switched = nullptr;
    Toggle *m_checks = nullptr; ///< null without an updater
};

} // namespace Panorel
