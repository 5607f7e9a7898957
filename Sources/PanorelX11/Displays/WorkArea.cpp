#include "PanorelX11/Displays/WorkArea.h"

namespace Panorel::X11 {

namespace {

constexpr std::uint32_t maximumClientListBytes = 64 * 1024;

bool crosses(const Strut &strut, double from, double to)
{
    return strut.first < to && strut.last >= from;
}

} // namespace

Rect workArea(const Rect &monitor, const std::vector<Strut> &struts, Size rootSize)
{
    double left = monitor.minX();
    double right = monitor.maxX();
    double top = monitor.minY();
    double bottom = monitor.maxY();
    const auto insideX = [&](double x) { return x > monitor.minX() && x < monitor.maxX(); };
    const auto insideY = [&](double y) { return y > monitor.minY() && y < monitor.maxY(); };

    for (const Strut &strut : struts) {
        const bool vertical = strut.edge == Strut::Edge::Left || strut.edge == Strut::Edge::Right;
        if (vertical ? !crosses(strut, monitor.minY(), monitor.maxY())
                     : !crosses(strut, monitor.minX(), monitor.maxX()))
            continue;
        switch (strut.edge) {
        case Strut::Edge::Left:
            if (insideX(strut.thickness))
                left = std::max(left, strut.thickness);
            break;
        case Strut::Edge::Right:
            if (insideX(rootSize.width - strut.thickness))
                right = std::min(right, rootSize.width - strut.thickness);
            break;
        case Strut::Edge::Top:
            if (insideY(strut.thickness))
                top = std::max(top, strut.thickness);
            break;
        case Strut::Edge::Bottom:
            if (insideY(rootSize.height - strut.thickness))
                bottom = std::min(bottom, rootSize.height - strut.thickness);
            break;
        }
    }
    if (left >= right || top >= bottom)
        return monitor;
    return {left, top, right - left, bottom - top};
}

std::vector<Strut> strutsFromValues(const std::vector<std::uint32_t> &values)
{
    if (values.size() != 4 && values.size() != 12)
        return {};
    std::vector<Strut> struts;
    for (std::size_t edge = 0; edge < 4; ++edge) {
        if (values[edge] == 0)
            continue;
        Strut strut{static_cast<Strut::Edge>(edge), double(values[edge]), 0, UINT32_MAX};
        if (values.size() == 12) {
            strut.first = values[4 + 2 * edge];
            strut.last = values[5 + 2 * edge];
        }
        struts.push_back(strut);
    }
    return struts;
}

std::vector<Strut> readStruts(const XConnection &connection)
{
    const auto clients =
        PropertyRequest(connection, connection.root(), connection.atom("_NET_CLIENT_LIST"),
                        maximumClientListBytes)
            .collect()
            .values32();
    struct Requests {
        PropertyRequest partial;
        PropertyRequest whole;
    };
    std::vector<Requests> requests;
    requests.reserve(clients.size());
    for (const xcb_window_t client : clients) {
        requests.push_back(
            {PropertyRequest(connection, client, connection.atom("_NET_WM_STRUT_PARTIAL")),
             PropertyRequest(connection, client, connection.atom("_NET_WM_STRUT"))});
    }
    std::vector<Strut> struts;
    for (Requests &request : requests) {
        const auto partial = strutsFromValues(request.partial.collect().values32());
        const auto whole = strutsFromValues(request.whole.collect().values32());
        const auto &chosen = partial.empty() ? whole : partial;
        struts.insert(struts.end(), chosen.begin(), chosen.end());
    }
    return struts;
}

std::optional<Size> readRootSize(const XConnection &connection)
{
    const XOwned<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), connection.root()), nullptr));
    if (!reply)
        return std::nullopt;
    return Size{double(reply->width), double(reply->height)};
}

} // namespace Panorel::X11
