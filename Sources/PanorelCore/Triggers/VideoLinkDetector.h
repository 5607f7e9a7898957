#pragma once

#include <QRegularExpression>
#include <QString>

/// Tells the texts of a calendar event that invite to a video meeting.
namespace Panorel::VideoLinkDetector {

/// The hosts of the meeting services, in any case.
const QRegularExpression &pattern();

/// Whether such a host stands anywhere in the text, with or without a scheme, sub-domain or path.
bool containsVideoLink(const QString &text);

} // namespace Panorel::VideoLinkDetector
