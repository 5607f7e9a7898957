#pragma once

#include "PanorelPorts/UserDefaultsPort.h"

#include <QTest>

namespace Panorel {

/// What Prefs relies on in every platform's settings.
class UserDefaultsContract : public QObject {
    Q_OBJECT

public:
    explicit UserDefaultsContract(UserDefaultsPort &defaults) : m_defaults(defaults) {}

private Q_SLOTS:
    void valuesKeepTheirTypes()
    {
        const QString key = QStringLiteral("key"), words = QStringLiteral("automation, „heute“");
        const QByteArray bytes("{\"keyCode\" : 1}\0\xff, ;#\n", 21);
        m_defaults.setBoolean(key, false);
        QCOMPARE(m_defaults.boolean(key), false);
        m_defaults.setNumber(key, 1.0 / 3);
        QVERIFY(m_defaults.number(key) == 1.0 / 3);
        m_defaults.setText(key, words);
        QCOMPARE(m_defaults.text(key), words);
        m_defaults.setData(key, bytes);
        QCOMPARE(m_defaults.data(key), bytes);
        QVERIFY(!m_defaults.boolean(key) && !m_defaults.number(key) && !m_defaults.text(key));
        m_defaults.remove(key);
        QVERIFY(!m_defaults.contains(key) && !m_defaults.data(key));
    }

private:
    UserDefaultsPort &m_defaults;
};

} // namespace Panorel
