#pragma once

#include "PanorelPorts/StatusItemPort.h"

#include <memory>

namespace Panorel::Mac {

/// A square item of the system's menu bar.
class MacStatusItem final : public StatusItemPort {
public:
    MacStatusItem();
    ~MacStatusItem() override;

    void show(std::function<void()> pressed) override;
    void hide() override;
    void setToolTip(const QString &text) override;
    std::optional<Rect> buttonFrame() const override;

private:
    class Item;

    QString m_toolTip;
    std::unique_ptr<Item> m_item; ///< null while it does not show
};

} // namespace Panorel::Mac
