#include "Fuzz/Fuzz.h"

#include <QRegularExpression>

#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t most);

namespace {

/// A value within the text, and where the member begins whose value it is: its key, if it has one.
struct Place {
    qsizetype member;
    qsizetype value;
    qsizetype end;
};

std::vector<Place> placesIn(const QByteArray &text)
{
    static const QRegularExpression token(
        QStringLiteral(R"((?<key>"(\\.|[^"\\])*"\s*:\s*)?("(\\.|[^"\\])*"|[\w.+-]+|[][{}]))"));
    std::vector<Place> places;
    std::vector<Place> open;
    auto matches = token.globalMatch(QString::fromLatin1(text)); // a byte is a character
    while (matches.hasNext()) {
        const auto match = matches.next();
        const Place place{match.capturedStart(), match.capturedEnd(u"key"), match.capturedEnd()};
        const char first = text[place.end - 1];
        if (first == '[' || first == '{') {
            open.push_back(place);
        } else if (first != ']' && first != '}') {
            places.push_back(place);
        } else if (!open.empty()) {
            places.push_back({open.back().member, open.back().value, place.end});
            open.pop_back();
        }
    }
    for (Place &place : places)
        place.value = std::max(place.value, place.member); // -1 where there is no key
    return places;
}

/// With one member removed or written twice, or one value nested, exchanged or rewritten.
QByteArray changed(QByteArray text, const std::vector<Place> &places, std::minstd_rand &random)
{
    static const QByteArrayList extremes{"null",       "true", "0",  "-1", "0.1",          "1e308",
                                         "4294967296", "\"\"", "[]", "{}", "[[0,0],[1,1]]"};
    const Place &place = places[random() % places.size()];
    const Place &other = places[random() % places.size()];
    const QByteArray member = text.mid(place.member, place.end - place.member);
    const QByteArray value = text.mid(place.value, place.end - place.value);
    const auto replaced = [&](const QByteArray &by) {
        return text.replace(place.value, value.size(), by);
    };
    switch (random() % 6) {
    case 0:
        return text.remove(place.member, member.size() + text.mid(place.end).startsWith(','));
    case 1:
        return text.insert(place.member, member + ',');
    case 2:
        return replaced('[' + value + ']');
    case 3:
        return replaced(text.mid(other.value, other.end - other.value));
    case 4:
        return replaced(extremes[qsizetype(random()) % extremes.size()]);
    default:
        QByteArray bytes =
            value.mid(1, value.size() - 2); // of a text; or what makes a number another
        const auto size = std::size_t(bytes.size());
        bytes.resize(bytes.size() + 16);
        auto *data = reinterpret_cast<std::uint8_t *>(bytes.data());
        bytes.truncate(qsizetype(LLVMFuzzerMutate(data, size, size + 16)));
        return replaced(value.left(1) + bytes + value.right(1));
    }
}

} // namespace

/// For a line and JSON text, which mostly stays JSON; now and then any bytes change.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t most, unsigned seed)
{
    Panorel::Fuzz::Input parts({reinterpret_cast<const char *>(data), qsizetype(size)});
    const QByteArray name = parts.line() + '\n';
    const QByteArray json = parts.rest();
    std::minstd_rand random(seed);
    const auto places = placesIn(json);
    QByteArray text;
    if (!places.empty() && random() % 4 > 0)
        text = name + changed(json, places, random);
    if (text.isEmpty() || std::size_t(text.size()) > most)
        return LLVMFuzzerMutate(data, size, most);
    std::memcpy(data, text.constData(), std::size_t(text.size()));
    return std::size_t(text.size());
}
