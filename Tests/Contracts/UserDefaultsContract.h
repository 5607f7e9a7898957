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
        const QByteArray bytes("{\"keyCode\" : 1}\0\xff, ;#\n", 21);
        m_defaults.setBoolean(QStringLiteral("off"), false);
        m_defaults.setNumber(QStringLiteral("third"), 1.0 / 3);
        m_defaults.setNumber(QStringLiteral("three"), 3);
        m_defaults.setData(QStringLiteral("bytes"), bytes);
        QCOMPARE(m_defaults.boolean(QStringLiteral("off")), false);
        QVERIFY(m_defaults.number(QStringLiteral("third")).value() == 1.0 / 3);
        QVERIFY(m_defaults.number(QStringLiteral("three")).value() == 3.0);
        QCOMPARE(m_defaults.data(QStringLiteral("bytes")), bytes);
        m_defaults.setText(QStringLiteral("words"), QStringLiteral("automation, „heute“"));
        QCOMPARE(m_defaults.text(QStringLiteral("words")), QStringLiteral("automation, „heute“"));
    }

    void whatIsGoneOrOfAnotherTypeReadsAsAbsent()
    {
        const auto text = QStringLiteral("text");
        m_defaults.setData(text, "yes");
        QVERIFY(m_defaults.contains(text));
        QVERIFY(!m_defaults.boolean(text) && !m_defaults.number(text) && !m_defaults.text(text));
        m_defaults.remove(text);
        QVERIFY(!m_defaults.contains(text) && !m_defaults.data(text));
        m_defaults.remove(text);
    }

private:
    UserDefaultsPort &m_defaults;
};

} // namespace Panorel
