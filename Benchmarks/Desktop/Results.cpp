#include "Desktop/Results.h"

#include "Support/TestHome.h"

#include <QJsonDocument>
#include <QJsonObject>

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

} // namespace Panorel::Bench
