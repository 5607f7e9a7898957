#include "PanorelCore/State/StateExport.h"

#include "PanorelCore/Files/PrivateFile.h"
#include "PanorelCore/JSON/PanorelJSON.h"

#include <QFile>
#include <QFileInfo>

namespace Panorel {

namespace {

const QString ownFormat = QStringLiteral("panorel-state");
constexpr qint64 ownVersion = 1;
constexpr qint64 longestFile = 256 * 1024 * 1024;

/// What every version has in common.
struct Envelope {
    QString format;
    qint64 version = 0;
};

struct Export {
    QString format = ownFormat;
    qint64 version = ownVersion;
    SavedState state;
};

} // namespace

template <> struct Fields<Envelope> {
    using R = Envelope;
    static constexpr auto table =
        std::make_tuple(Field{"format", &R::format}, Field{"version", &R::version});
};

template <> struct Fields<Export> {
    using R = Export;
    static constexpr auto table = std::make_tuple(
        Field{"format", &R::format}, Field{"version", &R::version}, Field{"state", &R::state});
};

namespace StateExport {

namespace {

/// Before the rest is looked at: a newer version may have changed all of it.
void checkEnvelope(const QByteArray &bytes)
{
    Envelope envelope;
    try {
        envelope = PanorelJSON::decoder().decode<Envelope>(bytes);
    } catch (const DecodingError &error) {
        throw Failure(
            QStringLiteral("it is no export of Panorel, or damaged (%1)").arg(error.description()));
    }
    if (envelope.format != ownFormat)
        throw Failure(QStringLiteral("it is no export of Panorel"));
    if (envelope.version > ownVersion)
        throw Failure(QStringLiteral("it was written by a newer version of Panorel"));
    if (envelope.version < 1)
        throw Failure(QStringLiteral("it is damaged (version %1)").arg(envelope.version));
}

} // namespace

QByteArray encode(const SavedState &state)
{
    Export whole;
    whole.state = state;
    return PanorelJSON::encoder().encode(whole);
}

SavedState decode(const QByteArray &bytes)
{
    checkEnvelope(bytes);
    try {
        return PanorelJSON::decoder().decode<Export>(bytes).state;
    } catch (const DecodingError &error) {
        throw Failure(QStringLiteral("it is damaged (%1)").arg(error.description()));
    }
}

void write(const QString &path, const SavedState &state)
{
    if (const QFileInfo info(path); info.exists() && !info.isFile())
        throw Failure(QStringLiteral("it is no plain file")); // a device would be replaced
    try {
        if (const auto failure = PrivateFile::write(path, encode(state)))
            throw Failure(*failure);
    } catch (const EncodingError &error) {
        throw Failure(error.description());
    }
}

SavedState read(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw Failure(QStringLiteral("there is no such file"));
    if (!info.isFile()) // opening a pipe would wait for a writer for ever
        throw Failure(QStringLiteral("it is no plain file"));
    if (info.size() > longestFile)
        throw Failure(QStringLiteral("it is too large"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(file.errorString());
    const QByteArray bytes = file.read(longestFile);
    if (file.error() != QFileDevice::NoError)
        throw Failure(file.errorString());
    return decode(bytes);
}

} // namespace StateExport

} // namespace Panorel
