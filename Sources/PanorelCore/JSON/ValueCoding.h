#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelCore/Geometry.h"
#include "PanorelCore/JSON/CodingErrors.h"

#include <QAnyStringView>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QUuid>

#include <concepts>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

namespace Panorel {

/// One entry of a record's field table.
template <typename Record, typename Value> struct Field {
    const char *key = nullptr;
    Value Record::*member = nullptr;
    bool required = true; ///< an optional field that is absent keeps the record's initial value
};
// Not every compiler deduces the arguments of an aggregate by itself.
template <typename Record, typename Value>
Field(const char *, Value Record::*) -> Field<Record, Value>;
template <typename Record, typename Value>
Field(const char *, Value Record::*, bool) -> Field<Record, Value>;

/// Specialised once for each record:
///     static constexpr auto table = std::make_tuple(Field<R, V>{"key", &R::member}, ...);
/// Reading visits the fields in this order; the file's keys are sorted.
template <typename Record> struct Fields;

template <typename Value>
concept FieldedRecord = requires
{
    Fields<Value>::table;
};

} // namespace Panorel

namespace Panorel {

/// Where in a document a value stands. A chain on the stack, because its text is wanted only when
/// decoding fails. Keys must outlive it.
class CodingPath {
public:
    CodingPath() = default;
    CodingPath(const CodingPath &parent, QAnyStringView key) : m_parent(&parent), m_key(key) {}
    CodingPath(const CodingPath &parent, qsizetype index) : m_parent(&parent), m_index(index) {}

    /// For example "layouts[0].windows[2].frame"; empty for the root.
    QString text() const;

private:
    const CodingPath *m_parent = nullptr;
    QAnyStringView m_key; ///< null: an index
    qsizetype m_index = 0;
};

} // namespace Panorel

/// How each type of value stands in JSON.
namespace Panorel::ValueCoding {

QJsonValue write(bool value);
QJsonValue write(qint64 value);
QJsonValue write(quint32 value);
QJsonValue write(double value);
QJsonValue write(const QString &value);
QJsonValue write(const QUuid &value);
QJsonValue write(Instant value);
QJsonValue write(const Rect &value);
QJsonValue write(const std::map<QString, QString> &value);
template <typename Element> QJsonValue write(const std::vector<Element> &elements);
template <typename Element> QJsonValue write(const std::set<Element> &elements);
template <FieldedRecord Record> QJsonValue write(const Record &record);

void read(const QJsonValue &json, bool &value, const CodingPath &path);
void read(const QJsonValue &json, qint64 &value, const CodingPath &path);
void read(const QJsonValue &json, quint32 &value, const CodingPath &path);
void read(const QJsonValue &json, double &value, const CodingPath &path);
void read(const QJsonValue &json, QString &value, const CodingPath &path);
void read(const QJsonValue &json, QUuid &value, const CodingPath &path);
void read(const QJsonValue &json, Instant &value, const CodingPath &path);
void read(const QJsonValue &json, Rect &value, const CodingPath &path);
void read(const QJsonValue &json, std::map<QString, QString> &value, const CodingPath &path);
template <typename Value>
void read(const QJsonValue &json, std::optional<Value> &value, const CodingPath &path);
template <typename Element>
void read(const QJsonValue &json, std::vector<Element> &elements, const CodingPath &path);
template <typename Element>
void read(const QJsonValue &json, std::set<Element> &elements, const CodingPath &path);
template <FieldedRecord Record>
void read(const QJsonValue &json, Record &record, const CodingPath &path);

/// Throws DecodingError "expected WHAT" where the value is of another type.
QJsonArray requireArray(const QJsonValue &json, const CodingPath &path);
QJsonObject requireObject(const QJsonValue &json, const CodingPath &path);

template <typename Element> QJsonValue write(const std::vector<Element> &elements)
{
    QJsonArray array;
    for (const Element &element : elements)
        array.append(write(element));
    return array;
}

/// As an array in ascending order.
template <typename Element> QJsonValue write(const std::set<Element> &elements)
{
    return write(std::vector<Element>(elements.begin(), elements.end()));
}

template <typename Record, typename Value>
void writeField(QJsonObject &object, const Record &record, const Field<Record, Value> &field)
{
    object.insert(QLatin1String(field.key), write(record.*field.member));
}

template <typename Record, typename Value>
void writeField(QJsonObject &object, const Record &record,
                const Field<Record, std::optional<Value>> &field)
{
    if (const auto &value = record.*field.member)
        object.insert(QLatin1String(field.key), write(*value));
}

template <FieldedRecord Record> QJsonValue write(const Record &record)
{
    QJsonObject object;
    std::apply([&](const auto &...field) { (writeField(object, record, field), ...); },
               Fields<Record>::table);
    return object;
}

template <typename Value>
void read(const QJsonValue &json, std::optional<Value> &value, const CodingPath &path)
{
    read(json, value.emplace(), path);
}

template <typename Element>
void read(const QJsonValue &json, std::vector<Element> &elements, const CodingPath &path)
{
    const QJsonArray array = requireArray(json, path);
    elements.clear();
    elements.reserve(size_t(array.size()));
    for (qsizetype i = 0; i < array.size(); ++i)
        read(array.at(i), elements.emplace_back(), CodingPath(path, i));
}

/// From an array in any order; what stands there twice counts once.
template <typename Element>
void read(const QJsonValue &json, std::set<Element> &elements, const CodingPath &path)
{
    std::vector<Element> list;
    read(json, list, path);
    elements = {list.begin(), list.end()};
}

template <typename Record, typename Value>
void readField(const QJsonObject &object, Record &record, const Field<Record, Value> &field,
               const CodingPath &path)
{
    const CodingPath here(path, QLatin1String(field.key));
    const QJsonValue json = object.value(QLatin1String(field.key));
    if (json.isUndefined() && field.required)
        throw DecodingError(QStringLiteral("missing key"), here.text());
    const bool absent = json.isUndefined() || (json.isNull() && !field.required);
    if (!absent)
        read(json, record.*field.member, here);
}

template <FieldedRecord Record>
void read(const QJsonValue &json, Record &record, const CodingPath &path)
{
    const QJsonObject object = requireObject(json, path);
    std::apply([&](const auto &...field) { (readField(object, record, field, path), ...); },
               Fields<Record>::table);
}

} // namespace Panorel::ValueCoding
