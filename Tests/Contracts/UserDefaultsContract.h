#pragma once

#include "PanorelPorts/UserDefaultsPort.h"

#include <QObject>

namespace Panorel {

/// What Prefs relies on in every platform's settings.
class UserDefaultsContract : public QObject {
    Q_OBJECT

public:
    explicit UserDefaultsContract(UserDefaultsPort &defaults) : m_defaults(defaults) {}

private Q_SLOTS:
    void valuesKeepTheirTypes();
    void anotherTypeReadsAsAbsent();
    void aRemovedKeyIsGone();

private:
    UserDefaultsPort &m_defaults;
};

} // namespace Panorel
