#include "Contracts/UserDefaultsContract.h"

#include <QTest>

namespace Panorel {

void UserDefaultsContract::valuesKeepTheirTypes()
{
    const QByteArray bytes("{\"keyCode\" : 1}\0\xff, ;#\n", 21);
    m_defaults.setBoolean(QStringLiteral("on"), true);
    m_defaults.setBoolean(QStringLiteral("off"), false);
    m_defaults.setNumber(QStringLiteral("third"), 1.0 / 3);
    m_defaults.setNumber(QStringLiteral("three"), 3);
    m_defaults.setData(QStringLiteral("bytes"), bytes);
    QCOMPARE(m_defaults.boolean(QStringLiteral("on")), true);
    QCOMPARE(m_defaults.boolean(QStringLiteral("off")), false);
    QVERIFY(m_defaults.number(QStringLiteral("third")).value() == 1.0 / 3);
    QVERIFY(m_defaults.number(QStringLiteral("three")).value() == 3.0);
    QCOMPARE(m_defaults.data(QStringLiteral("bytes")), bytes);
}

void UserDefaultsContract::anotherTypeReadsAsAbsent()
{
    m_defaults.setData(QStringLiteral("text"), "yes");
    QVERIFY(m_defaults.contains(QStringLiteral("text")));
    QVERIFY(!m_defaults.boolean(QStringLiteral("text")));
    QVERIFY(!m_defaults.number(QStringLiteral("text")));
    QVERIFY(!m_defaults.boolean(QStringLiteral("never stored")));
    QVERIFY(!m_defaults.contains(QStringLiteral("never stored")));
}

void UserDefaultsContract::aRemovedKeyIsGone()
{
    m_defaults.setBoolean(QStringLiteral("short-lived"), true);
    m_defaults.remove(QStringLiteral("short-lived"));
    QVERIFY(!m_defaults.contains(QStringLiteral("short-lived")));
    m_defaults.remove(QStringLiteral("never stored"));
}

} // namespace Panorel
