#include "PanorelCore/Triggers/VideoLinkDetector.h"

namespace Panorel::VideoLinkDetector {

const QRegularExpression &pattern()
{
    static const QRegularExpression hosts(
        QStringLiteral(R"((zoom\.us|meet\.google\.com|teams\.microsoft\.com|teams\.live\.com|)"
                       R"(webex\.com|facetime\.apple\.com))"),
        QRegularExpression::CaseInsensitiveOption);
    return hosts;
}

bool containsVideoLink(const QString &text)
{
    return pattern().match(text).hasMatch();
}

} // namespace Panorel::VideoLinkDetector
