#include "Keepers.h"

#include <QRegularExpression>

namespace Panorel::Desktop {
namespace {

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(10'000) || process.exitCode() != 0)
        qFatal("%s %s failed", qPrintable(program), qPrintable(arguments.join(u' ')));
    return QString::fromUtf8(process.readAllStandardOutput());
}

class PanorelKeeper final : public Keeper {
public:
    explicit PanorelKeeper(EngineSession &session) : m_session(session) {}

    void save() override { m_layout = m_session.capture(); }
    void restore() override { m_session.restore(m_layout); }

private:
    EngineSession &m_session;
    Layout m_layout;
};

/// wmctrl -lG, and -e with the very numbers that it printed.
class WmctrlKeeper final : public Keeper {
public:
    void save() override
    {
        m_lines = outputOf(QStringLiteral("wmctrl"), {QStringLiteral("-lG")})
                      .split(u'\n', Qt::SkipEmptyParts);
    }
    void restore() override
    {
        for (const QString &line : m_lines) {
            // Window, desktop, x, y, width, height, machine, title.
            const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
            run(QStringLiteral("wmctrl"),
                {QStringLiteral("-i"), QStringLiteral("-r"), words.value(0), QStringLiteral("-e"),
                 QStringLiteral("0,") + words.mid(2, 4).join(u',')});
        }
    }

private:
    QStringList m_lines;
};

/// xdotool's getwindowgeometry, and windowmove and windowsize with the very numbers.
class XdotoolKeeper final : public Keeper {
public:
    explicit XdotoolKeeper(EngineSession &session) : m_session(session) {}

    void save() override
    {
        m_places.clear();
        for (const TestClient &client : m_session.clients) {
            const QString window = QString::number(client.window());
            const QString text =
                outputOf(QStringLiteral("xdotool"),
                         {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), window});
            QStringList place{window};
            for (const char *key : {"X", "Y", "WIDTH", "HEIGHT"}) {
                const QRegularExpression line(
                    QStringLiteral("^%1=(-?\\d+)$").arg(QLatin1String(key)),
                    QRegularExpression::MultilineOption);
                place << line.match(text).captured(1);
            }
            m_places.push_back(place);
        }
    }
    void restore() override
    {
        for (const QStringList &place : m_places) {
            run(QStringLiteral("xdotool"),
                {QStringLiteral("windowmove"), place[0], place[1], place[2]});
            run(QStringLiteral("xdotool"),
                {QStringLiteral("windowsize"), place[0], place[3], place[4]});
        }
    }

private:
    EngineSession &m_session;
    std::vector<QStringList> m_places;
};

} // namespace

std::unique_ptr<Keeper> makeKeeper(const QString &name, EngineSession &session)
{
    if (name == u"panorel")
        return std::make_unique<PanorelKeeper>(session);
    if (name == u"wmctrl")
        return std::make_unique<WmctrlKeeper>();
    if (name == u"xdotool")
        return std::make_unique<XdotoolKeeper>(session);
    qFatal("%s keeps no windows", qPrintable(name));
}

} // namespace Panorel::Desktop
