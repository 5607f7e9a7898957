#pragma once

#include "InMemoryProgram.h"
#include "Panorel/Settings/SettingsModel.h"

namespace Panorel {

/// The program with the model of its settings, after its first learning.
struct SettingsProgram : Program {
    SettingsModel model;

    explicit SettingsProgram(bool isTrusted = true)
        : Program(isTrusted), model{*controller, services()}
    {}
    /// With these desks learned in an earlier run.
    explicit SettingsProgram(const std::vector<Layout> &learned)
        : model{controllerWith(learned), // first: it may start anew all that follows
                services()}
    {}

    /// A scene of the current windows under that name.
    SceneRecord addScene(const char *name, const std::optional<HotKeyCombo> &key = {})
    {
        SceneRecord scene = model.addSceneFromCurrentWindows();
        scene.name = QString::fromUtf8(name);
        scene.hotKey = key;
        model.updateScene(scene);
        return scene;
    }
    QStringList sceneNames()
    {
        QStringList names;
        for (const SceneRecord &scene : model.scenes())
            names << scene.name;
        return names;
    }

private:
    AppController &controllerWith(const std::vector<Layout> &learned)
    {
        LayoutStore store(dir.log, dir.clock);
        for (const Layout &layout : learned)
            store.saveLearned(layout);
        start();
        return *controller;
    }
};

} // namespace Panorel
