#include "Desktop/Support/TestProgram.h"

#include "Desktop/Support/TestServer.h"

#include <QSettings>
#include <QTest>

#include <csignal>

namespace Panorel::Desktop {

TestProgram::TestProgram(const std::map<QString, QByteArray> &files) : m_child(path())
{
    for (const auto &[name, bytes] : files)
        writeFile(m_data.filePath(name), bytes);
    qputenv("PANOREL_DATA_DIR", QFile::encodeName(m_data.path()));
    m_child.process().setProcessChannelMode(QProcess::SeparateChannels);
    m_child.start();
}

QString TestProgram::path()
{
    return QStringLiteral(PANOREL_PROGRAM);
}

TestProgram::~TestProgram()
{
    qunsetenv("PANOREL_DATA_DIR");
}

QByteArray TestProgram::processFile(const QString &name) const
{
    return readFile(QStringLiteral("/proc/%1/%2").arg(processID()).arg(name));
}

void TestProgram::awaitRest() const
{
    const auto processorTime = [this] {
        const QByteArray stat = processFile(QStringLiteral("stat"));
        return stat.mid(stat.lastIndexOf(')')).split(' ').mid(12, 2);
    };
    constexpr int looksInARow = 5;
    int restful = 0;
    require(
        [&] {
            const auto time = processorTime();
            QTest::qSleep(100);
            restful = processorTime() == time ? restful + 1 : 0;
            return restful == looksInARow;
        },
        "a program that rests");
}

void TestProgram::pressUntilLogged(TestKeyboard &keyboard, const HotKeyCombo &combo,
                                   const char *text) const
{
    const qsizetype before = logged(text);
    require(
        [&] {
            keyboard.press(combo);
            return waitUntil([&] { return logged(text) > before; }, 3'000);
        },
        text);
}

QByteArray TestProgram::awaitRestore(qsizetype logSize, int displays) const
{
    const QByteArray settled = "display settled: " + QByteArray::number(displays) + " displays";
    QByteArray report;
    require(
        [&] {
            const QByteArray since = log().mid(logSize);
            const qsizetype settling = since.indexOf(settled);
            const qsizetype begin = settling < 0 ? -1 : since.indexOf("restore report: ", settling);
            const qsizetype end = begin < 0 ? -1 : since.indexOf('\n', begin);
            report = since.mid(begin, end - begin);
            return end >= 0;
        },
        "a restored desk");
    return report;
}

void TestProgram::setSettleSeconds(double seconds)
{
    QSettings(TestServer::settings(), QSettings::IniFormat)
        .setValue(QStringLiteral("displaySettleSeconds"), seconds);
}

void TestProgram::endCleanly(int signal)
{
    ::kill(static_cast<pid_t>(m_child.processID()), signal);
    awaitEnd();
    QCOMPARE(m_child.process().exitCode(), 0);
    QCOMPARE(m_child.process().readAllStandardError(), QByteArray());
}

QByteArray TestProgram::failsWithOneLine()
{
    awaitEnd();
    const QByteArray errors = m_child.process().readAllStandardError();
    if (m_child.process().exitCode() == 0 || errors.count('\n') != 1
        || !errors.startsWith("panorel: "))
        QTest::qFail(errors.constData(), __FILE__, __LINE__);
    return errors;
}

void TestProgram::awaitEnd()
{
    require([this] { return !m_child.running(); }, "the end of the program");
    QCOMPARE(m_child.process().exitStatus(), QProcess::NormalExit);
}

} // namespace Panorel::Desktop
