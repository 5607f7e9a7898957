#include "Support/InMemoryPlatform.h"

#include "PanorelCore/Matching/CoordSpace.h"

namespace Panorel {

void InMemoryScreens::plug(const QString &name, const Rect &frame, std::uint32_t serial)
{
    const double primaryHeight =
        displays.empty() ? frame.height : displays.front().screen.frame.height;
    constexpr double menuBar = 25;
    const Rect visible{frame.x, frame.y + menuBar, frame.width, frame.height - menuBar};
    Display display;
    display.screen = {m_nextNumber++, CoordSpace::flip(frame, primaryHeight),
                      CoordSpace::flip(visible, primaryHeight), name};
    display.identity = {name + QStringLiteral("-uuid"), 0x610, 0xA050, serial, displays.empty()};
    displays.push_back(display);
}

void InMemoryScreens::unplug(const QString &name)
{
    std::erase_if(displays,
                  [&](const Display &display) { return display.screen.localizedName == name; });
}

std::vector<Screen> InMemoryScreens::screens()
{
    std::vector<Screen> screens;
    for (const Display &display : displays)
        screens.push_back(display.screen);
    return screens;
}

DisplayIdentity InMemoryScreens::identity(DisplayNumber number)
{
    for (const Display &display : displays) {
        if (display.screen.displayNumber == number)
            return display.identity;
    }
    return {};
}

void InMemoryScreens::setChangeCallback(std::function<void()> changed)
{
    m_changed = std::move(changed);
    ++callbacksSet;
}

void InMemoryHotKeys::press(const HotKeyCombo &combo)
{
    for (const auto &[number, held] : registered) {
        if (held == combo)
            return deliver(number);
    }
}

std::unique_ptr<HotKeyRegistration> InMemoryHotKeys::registerHotKey(const HotKeyCombo &combo,
                                                                    HotKeyNumber number)
{
    class Registration final : public HotKeyRegistration {
    public:
        Registration(InMemoryHotKeys &keys, HotKeyNumber held) : m_keys(keys), m_number(held) {}
        ~Registration() override { m_keys.registered.erase(m_number); }
        Registration(const Registration &) = delete;
        Registration &operator=(const Registration &) = delete;

    private:
        InMemoryHotKeys &m_keys;
        HotKeyNumber m_number;
    };
    if (combo.keyCode > lastKeyCode || std::ranges::find(refused, combo) != refused.end())
        return nullptr;
    registered[number] = combo;
    return std::make_unique<Registration>(*this, number);
}

void InMemoryCalendar::events(Instant from, Instant to,
                              std::function<void(const Events &events)> completion)
{
    ++queries;
    Events found;
    std::ranges::copy_if(all, std::back_inserter(found), [&](const CalendarEvent &event) {
        return !event.start || (*event.start >= from && *event.start < to);
    });
    reply([=] { completion(found); });
}

void InMemoryCalendar::reply(const std::function<void()> &completion)
{
    m_waiting.push_back(completion);
    if (!isSlow)
        answer();
}

void InMemoryCalendar::answer()
{
    for (const auto &completion : std::exchange(m_waiting, {}))
        completion();
}

std::optional<PreferenceValue> InMemoryPlatform::value(const QString &domain, const QString &key)
{
    const auto found = preferences.find(domain + u' ' + key);
    return found == preferences.end() ? std::nullopt : std::optional(found->second);
}

} // namespace Panorel
