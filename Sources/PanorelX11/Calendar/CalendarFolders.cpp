#include "PanorelX11/Calendar/CalendarFolders.h"

#include "PanorelX11/Calendar/EventExpansion.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Panorel::X11 {

namespace {

constexpr int deepest = 3;           // account, calendar and one to spare
constexpr int mostEntries = 50'000;  // of all folders together
constexpr qint64 largest = 32 << 20; // bytes of one file

/// Calls `visit` with every file that is named like a calendar until it answers false. False where
/// there is too much to look at. A folder that is reached twice, through a link, is visited once.
template <typename Visit> bool forEachFile(const QStringList &roots, Visit visit)
{
    std::vector<std::pair<QString, int>> folders;
    for (const QString &root : roots)
        folders.emplace_back(root, 0);
    std::set<QString> visited;
    int entries = 0;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        const auto [folder, depth] = folders[i];
        const QString canonical = QFileInfo(folder).canonicalFilePath();
        if (canonical.isEmpty() || !visited.insert(canonical).second)
            continue;
        QDirIterator iterator(folder, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
        while (iterator.hasNext()) {
            if (++entries > mostEntries)
                return false;
            const QString path = iterator.next();
            const QFileInfo entry = iterator.fileInfo();
            if (entry.isDir()) {
                if (depth < deepest)
                    folders.emplace_back(path, depth + 1);
            } else if (path.endsWith(QLatin1String(".ics"), Qt::CaseInsensitive)) {
                if (!visit(path))
                    return true;
            }
        }
    }
    return true;
}

/// What changes when a file does.
struct Stamp {
    dev_t device = 0;
    ino_t node = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};

    explicit Stamp(const struct stat &status)
        : device(status.st_dev), node(status.st_ino), size(status.st_size),
          modified(status.st_mtim), changed(status.st_ctim)
    {}
    bool operator==(const Stamp &other) const
    {
        const auto same = [](const timespec &left, const timespec &right) {
            return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
        };
        return device == other.device && node == other.node && size == other.size
               && same(modified, other.modified) && same(changed, other.changed);
    }
};

class Descriptor {
public:
    /// Whatever it turns out to be, opening it waits for nobody.
    explicit Descriptor(const QByteArray &path)
        : m_number(open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
    {}
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int number() const { return m_number; }

private:
    int m_number;
};

} // namespace

struct CalendarFolders::KnownFile {
    std::optional<Stamp> stamp;
    CalendarFile contents;
    bool isThere = false;
};

CalendarFolders::CalendarFolders(QStringList roots, CalendarReport report)
    : m_roots(std::move(roots)), m_report(std::move(report))
{}

CalendarFolders::~CalendarFolders() = default;

bool CalendarFolders::holdAny(const QStringList &roots)
{
    bool found = false;
    forEachFile(roots, [&](const QString &) {
        found = true;
        return false;
    });
    return found;
}

CalendarPort::Events CalendarFolders::events(Instant from, Instant to, GCancellable *cancel)
{
    look(cancel);
    std::map<QString, EventExpansion> calendars;
    for (const auto &[path, file] : m_files) {
        calendars.try_emplace(QFileInfo(path).path(), from, to, QTimeZone::systemTimeZone())
            .first->second.add(file.contents.events);
    }
    CalendarPort::Events result;
    for (auto &[folder, calendar] : calendars) {
        if (g_cancellable_is_cancelled(cancel))
            break;
        CalendarPort::Events here = calendar.occurrences();
        std::ranges::move(here, std::back_inserter(result));
        for (const QString &title : calendar.overlong()) {
            if (m_reportedOverlong.size() < 100 && m_reportedOverlong.insert(title).second)
                m_report(QStringLiteral("“%1” repeats too often to be followed").arg(title));
        }
    }
    return result;
}

/// Brings what is known of the files up to date.
void CalendarFolders::look(GCancellable *cancel)
{
    for (auto &[path, file] : m_files)
        file.isThere = false;
    const bool seenAll = forEachFile(m_roots, [&](const QString &path) {
        KnownFile &known = m_files[path];
        known.isThere = true;
        read(path, known);
        return !g_cancellable_is_cancelled(cancel);
    });
    if (!seenAll)
        m_report(QStringLiteral("the calendar folders hold too many files"));
    if (!g_cancellable_is_cancelled(cancel))
        std::erase_if(m_files, [](const auto &entry) { return !entry.second.isThere; });
}

void CalendarFolders::read(const QString &path, KnownFile &known)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status {};
    if (stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode)) {
        known = {}; // gone meanwhile, or a pipe or a device that was never a calendar
        return;
    }
    if (known.stamp == Stamp(status))
        return;
    known.stamp = Stamp(status);
    known.contents = {};
    const auto leftOut = [&](const QString &why) {
        m_report(QStringLiteral("%1 %2").arg(path, why));
    };
    const Descriptor file(name);
    if (file.number() < 0 || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        if (errno != ENOENT)
            leftOut(
                QStringLiteral("can't be read: %1").arg(QString::fromLocal8Bit(strerror(errno))));
        return;
    }
    known.stamp = Stamp(status);
    QFile contents;
    if (status.st_size > largest
        || !contents.open(file.number(), QIODevice::ReadOnly, QFileDevice::DontCloseHandle)) {
        leftOut(QStringLiteral("is too large for a calendar"));
        return;
    }
    known.contents = CalendarFile::parse(contents.read(largest));
    if (!known.contents.problem.isEmpty())
        leftOut(known.contents.problem);
}

} // namespace Panorel::X11
