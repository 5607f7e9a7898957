#pragma once

#include <QJsonArray>
#include <QString>

#include <functional>
#include <map>
#include <tuple>
#include <vector>

namespace Panorel::Bench {

/// What was measured, sample by sample, and where; what it means is worked out by who reads it.
class Results {
public:
    /// Under which circumstances a value was measured. Empty or 0 where it makes no difference.
    struct Key {
        QString scenario;
        QString manager;
        int windows = 0;
        QString way;
        QString measure; ///< with its unit, "frames ms"

        bool operator<(const Key &other) const
        {
            return std::tie(scenario, manager, windows, way, measure) < std::tie(
                       other.scenario, other.manager, other.windows, other.way, other.measure);
        }
    };

    void add(const Key &key, double value) { m_samples[key].push_back(value); }

    /// As a JSON array of objects, a series each. Fatal where the file can't be written.
    void write(const QString &path) const;

private:
    std::map<Key, std::vector<double>> m_samples;
};

/// From the command line.
struct Selection {
    QStringList managers;
    std::vector<int> sizes;
    int rounds = 9;
    int idleSeconds = 90;

    /// Calls it for each desk that was chosen, and says so on the terminal.
    void forEachDesk(const char *scenario,
                     const std::function<void(const QString &manager, int windows)> &measure) const;
};

void measureRestore(Results &results, const Selection &selection);
void measureSettle(Results &results, const Selection &selection);
void measureLearn(Results &results, const Selection &selection);
void measureStart(Results &results, const Selection &selection);

} // namespace Panorel::Bench
