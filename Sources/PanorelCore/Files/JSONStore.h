#pragma once

#include "PanorelCore/Files/StoreFile.h"
#include "PanorelCore/JSON/PanorelJSON.h"

#include <optional>

namespace Panorel {

/// One file that holds one record. Its owner loads once, keeps the value in memory and saves the
/// whole value after every change; nothing watches the file. Main thread only.
template <typename Value> class JSONStore {
public:
    /// Touches nothing on disk.
    JSONStore(const QString &url, AppLog &log, const Clock &clock) : m_file(url, log, clock) {}

    const QString &url() const { return m_file.path(); }

    /// Absent where there is no readable file, silently, and where it does not hold such a
    /// record; then it is moved aside and the log says why.
    std::optional<Value> load()
    {
        const auto bytes = m_file.read();
        if (!bytes)
            return {};
        try {
            return PanorelJSON::decoder().decode<Value>(*bytes);
        } catch (const DecodingError &error) {
            m_file.setCorruptAside(error.description());
            return {};
        }
    }

    /// False where it failed, which is logged; the caller's value stays as it is and is not tried
    /// again.
    bool save(const Value &value)
    {
        try {
            return m_file.write(PanorelJSON::encoder().encode(value));
        } catch (const EncodingError &error) {
            m_file.logSaveFailure(error.description());
            return false;
        }
    }

private:
    StoreFile m_file;
};

} // namespace Panorel
