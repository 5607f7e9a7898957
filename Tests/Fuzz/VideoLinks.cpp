#include "PanorelCore/Triggers/VideoLinkDetector.h"

#include "Fuzz/Fuzz.h"

#include <algorithm>

using namespace Panorel;

namespace {

void check(const QByteArray &input)
{
    static const char *const hosts[] = {"zoom.us",        "meet.google.com",
                                        "teams.live.com", "teams.microsoft.com",
                                        "webex.com",      "facetime.apple.com"};
    const QString text = QString::fromUtf8(input);
    const bool isThere = std::ranges::any_of(hosts, [&](const char *host) {
        return text.contains(QLatin1String(host), Qt::CaseInsensitive);
    });
    Fuzz::require(VideoLinkDetector::containsVideoLink(text) == isThere,
                  "a link is found wherever it stands, and nothing else is");
}

const Fuzz::Target target("VideoLinks", check);

} // namespace
