#include "PanorelX11/Applications/GioLauncher.h"

namespace Panorel::X11 {

std::optional<QString> GioLauncher::locate(const QString &)
{
    return {};
}

void GioLauncher::open(const QString &) {}

} // namespace Panorel::X11
