#pragma once

#include <QByteArray>

#include <cstring>
#include <vector>

/// Readers of outside data, each with what holds whatever it is given. A fuzzer (preset "fuzz")
/// looks for inputs that break it; what it found stays in Corpus/NAME and is tried in every build.
namespace Panorel::Fuzz {

/// One reader: a file of its own, named as its folder of the corpus.
struct Target {
    Target(const char *named, void (*checking)(const QByteArray &));

    const char *name;
    /// Ends normally, or throws std::logic_error with the promise that was broken.
    void (*check)(const QByteArray &input);
};

/// Those that are linked into this program.
extern std::vector<const Target *> targets;

/// Throws std::logic_error(promise) unless it holds.
void require(bool holds, const char *promise);

/// Takes an input apart, from its front. What is missing is zero or empty.
class Input {
public:
    explicit Input(const QByteArray &bytes) : m_rest(bytes) {}

    template <typename Number> Number number()
    {
        Number value{};
        const QByteArray bytes = take(sizeof(Number));
        std::memcpy(&value, bytes.constData(), std::size_t(bytes.size()));
        return value;
    }
    /// Up to the next line feed, which is dropped.
    QByteArray line();
    QByteArray take(qsizetype count);
    QByteArray rest() { return take(m_rest.size()); }

private:
    QByteArray m_rest;
};

} // namespace Panorel::Fuzz
