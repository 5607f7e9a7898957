#include "PanorelX11/X11Platform.h"

#include "PanorelX11/Connection/ToolkitMessages.h"
#include "PanorelX11/Session/StartEnvironment.h"

#include <QCoreApplication>

namespace Panorel {

namespace X11 {

X11Platform::X11Platform(AppLog &log, const Clock &clock)
    : m_screens(m_events), m_hotKeys(m_events), m_userDefaults(log, clock),
      m_loginItem(QCoreApplication::applicationFilePath()), m_calendar(log, clock), m_alarm(log)
{
    ToolkitMessages::setConnectionBroke([this] { m_events.announceLost(); });
}

X11Platform::~X11Platform()
{
    ToolkitMessages::setConnectionBroke({});
}

std::vector<LinkedLibrary> X11Platform::libraries() const
{
    return {{QStringLiteral("XCB"), Licence::MIT},
            {QStringLiteral("GLib"), Licence::LGPL2OrLater},
            {QStringLiteral("libical"), Licence::LGPL2OrMPL2}};
}

} // namespace X11

void preparePlatform()
{
    X11::StartEnvironment::record();
    const X11::XConnection reachable;
    X11::ToolkitMessages::install();
    // Windows are placed through X11, also where the session offers the toolkit something newer.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

std::unique_ptr<Platform> makePlatform(AppLog &log, const Clock &clock)
{
    return std::make_unique<X11::X11Platform>(log, clock);
}

std::unique_ptr<UserDefaultsPort> makeUserDefaults(AppLog &log, const Clock &clock)
{
    return std::make_unique<X11::IniUserDefaults>(log, clock);
}

std::unique_ptr<LoginItemPort> makeLoginItem()
{
    return std::make_unique<X11::XdgLoginItem>(QCoreApplication::applicationFilePath());
}

} // namespace Panorel
