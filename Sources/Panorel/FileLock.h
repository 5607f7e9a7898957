#pragma once

#include <QString>

#include <memory>

namespace Panorel {

/// A lock that at most one process holds. The system itself gives it back when its holder ends, in
/// whatever way, so there is nothing stale to be told from what is live. The file stays behind.
class FileLock {
public:
    /// Null where another process holds it, at once. Throws std::runtime_error, its text fit for
    /// the user, where the file can't be made.
    static std::unique_ptr<FileLock> tryLock(const QString &path);

    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

private:
    explicit FileLock(int file) : m_file(file) {}

    int m_file;
};

} // namespace Panorel
