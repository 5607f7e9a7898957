#include "PanorelX11/DesktopPicture/PictureWay.h"

#include "PanorelX11/DesktopPicture/PlasmaPicture.h"
#include "PanorelX11/DesktopPicture/RootWindowPicture.h"
#include "PanorelX11/DesktopPicture/SettingsPicture.h"
#include "PanorelX11/DesktopPicture/XfcePicture.h"

namespace Panorel::X11 {

PictureWay pictureWay(const QString &currentDesktop)
{
    constexpr std::pair<const char *, PictureWay> known[] = {
        {"GNOME", PictureWay::Gnome},       {"Unity", PictureWay::Gnome},
        {"Budgie", PictureWay::Gnome},      {"X-Cinnamon", PictureWay::Cinnamon},
        {"Cinnamon", PictureWay::Cinnamon}, {"MATE", PictureWay::Mate},
        {"XFCE", PictureWay::Xfce},         {"KDE", PictureWay::Plasma},
    };
    for (const QString &name : currentDesktop.split(u':')) {
        for (const auto &[desktop, way] : known) {
            if (name.compare(QLatin1String(desktop), Qt::CaseInsensitive) == 0)
                return way;
        }
    }
    return PictureWay::RootWindow;
}

std::unique_ptr<PictureSetter> makePictureSetter(PictureWay way)
{
    switch (way) {
    case PictureWay::Gnome:
        return std::make_unique<SettingsPicture>(SettingsPicture::gnome());
    case PictureWay::Cinnamon:
        return std::make_unique<SettingsPicture>(SettingsPicture::cinnamon());
    case PictureWay::Mate:
        return std::make_unique<SettingsPicture>(SettingsPicture::mate());
    case PictureWay::Xfce:
        return std::make_unique<XfcePicture>();
    case PictureWay::Plasma:
        return std::make_unique<PlasmaPicture>();
    case PictureWay::RootWindow:
        break;
    }
    return std::make_unique<RootWindowPicture>();
}

} // namespace Panorel::X11
