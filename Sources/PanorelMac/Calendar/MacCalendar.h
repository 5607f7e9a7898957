#pragma once

#include "PanorelPorts/CalendarPort.h"

#include <memory>

namespace Panorel::Mac {

/// The calendars of the system's event store, which is opened at the first request or query.
/// Queries answer within the call.
class MacCalendar final : public CalendarPort {
public:
    MacCalendar();
    ~MacCalendar() override;

    CalendarAuthorization authorization() override;
    void requestAccess(std::function<void(bool granted)> completion) override;
    void events(Instant from, Instant to,
                std::function<void(const Events &events)> completion) override;

private:
    class Store;

    Store &store();

    std::unique_ptr<Store> m_store;
};

} // namespace Panorel::Mac
