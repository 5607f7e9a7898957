#pragma once

#include "PanorelX11/DesktopPicture/PictureSetter.h"

#include <QByteArray>

#include <vector>

namespace Panorel::X11 {

/// The picture as a setting that the desktop follows.
class SettingsPicture final : public PictureSetter {
public:
    /// Where a desktop keeps its picture.
    struct Place {
        QByteArray schema;
        std::vector<QByteArray> keys; ///< those that the installed schema has are set
        bool holdsURI = true;         ///< otherwise a path
    };

    static Place gnome();
    static Place cinnamon();
    static Place mate();

    explicit SettingsPicture(Place place) : m_place(std::move(place)) {}

    /// Nothing where the schema isn't installed or the administrator has locked the key.
    void set(const PictureFile &picture) override;

private:
    Place m_place;
};

} // namespace Panorel::X11
