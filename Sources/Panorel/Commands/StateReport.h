#pragma once

#include "PanorelCore/Records/Models.h"

#include <QJsonObject>

#include <functional>

namespace Panorel {

struct ProgramStores;
struct SavedState;

/// What the stores hold, in the words of the command line's JSON. The same whether the running
/// program is asked or the files are read.
class StateReport {
public:
    /// `configID` is the desk that is there now, empty where nobody knows. `keyText` is how this
    /// platform writes a key. The stores must outlive the report.
    StateReport(const ProgramStores &stores, const QString &configID,
                std::function<QString(const HotKeyCombo &)> keyText);

    QJsonObject scenes() const;
    QJsonObject desks() const;
    QJsonObject rules() const;
    QJsonObject triggers() const;

    /// The desk that is there.
    QJsonObject currentDesk(const std::vector<DisplayInfo> &displays) const;

    /// How much of everything there is, for export and import.
    static QJsonObject counts(const SavedState &state);

private:
    QJsonObject scene(const SceneRecord &scene) const;

    const ProgramStores &m_stores;
    QString m_configID;
    std::function<QString(const HotKeyCombo &)> m_keyText;
};

} // namespace Panorel
