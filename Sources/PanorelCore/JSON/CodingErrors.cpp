#include "PanorelCore/JSON/CodingErrors.h"

namespace Panorel {

DecodingError::DecodingError(const QString &message, const QString &path)
    : std::runtime_error(message.toStdString()), m_message(message), m_path(path)
{}

QString DecodingError::description() const
{
    return m_path.isEmpty() ? m_message : m_message + QStringLiteral(" at ") + m_path;
}

EncodingError::EncodingError(const QString &message) : std::runtime_error(message.toStdString()) {}

} // namespace Panorel
