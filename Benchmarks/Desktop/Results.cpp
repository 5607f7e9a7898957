#include "Desktop/Results.h"

#include "Support/TestHome.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace Panorel::Bench {

void Results::write(const QString &path) const
{
    QJsonArray all;
    for (const auto &[key, samples] : m_samples) {
        QJsonArray values;
        for (const double sample : samples)
            values.append(sample);
        all.append(QJsonObject{{QStringLiteral("scenario"), key.scenario},
                               {QStringLiteral("manager"), key.manager},
                               {QStringLiteral("windows"), key.windows},
                               {QStringLiteral("way"), key.way},
                               {QStringLiteral("measure"), key.measure},
                               {QStringLiteral("samples"), values}});
    }
    writeFile(path, QJsonDocument(all).toJson());
}

void Selection::forEachDesk(
    const char *scenario,
    const std::function<void(const QString &manager, int windows)> &measure) const
{
    for (const QString &manager : managers) {
        for (const int size : sizes) {
            std::fprintf(stderr, "%s: %d windows under %s\n", scenario, size, qPrintable(manager));
            measure(manager, size);
        }
    }
}

} // namespace Panorel::Bench
