#include "PanorelX11/X11Platform.h"

#include <QCoreApplication>

namespace Panorel {

namespace X11 {

X11Platform::X11Platform()
    : m_screens(m_events), m_hotKeys(m_events), m_loginItem(QCoreApplication::applicationFilePath())
{}

} // namespace X11

std::unique_ptr<Platform> makePlatform()
{
    return std::make_unique<X11::X11Platform>();
}

} // namespace Panorel
