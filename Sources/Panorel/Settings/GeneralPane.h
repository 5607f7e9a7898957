#pragma once

#include "Panorel/UI/Page.h"

#include <vector>

namespace Panorel {

class PlainButton;
class Prefs;
class SettingsModel;
class StatusLine;
class Toggle;

/// What Panorel does by itself, and what it needs of the system for it.
class GeneralPane : public Page {
    Q_OBJECT

public:
    /// Both must outlive it.
    GeneralPane(SettingsModel &model, Prefs &prefs, bool hasDock, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    using Getter = bool (Prefs::*)() const;
    using Setter = void (Prefs::*)(bool);

    /// A switch and the preference that it shows.
    struct Entry {
        Toggle *toggle;
        Getter value;
    };

    void addRestoring();
    void addScenes();
    void addStart(bool hasDock);
    void addSystem();
    void addSwitch(RowCard &card, const QString &name, const QString &explanation, Getter value,
                   Setter setValue);
    void refresh();
    void refreshSpaces();

    SettingsModel &m_model;
    Prefs &m_prefs;
    std::vector<Entry> m_entries;
    StatusLine *m_permission = nullptr;
    PlainButton *m_grant = nullptr;
    StatusLine *m_spaces = nullptr;
    PlainButton *m_openSpaces = nullptr;
    QWidget *m_spacesRow = nullptr;
};

} // namespace Panorel
