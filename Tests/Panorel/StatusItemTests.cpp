#include "Panorel/Panel/PanelController.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/StatusItemController.h"
#include "Support/InMemoryPlatform.h"

#include <QTest>

using namespace Panorel;

class StatusItemTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theMenuBarsButtonOpensThePanelBelowItAndClosesIt()
    {
        InMemoryPlatform platform;
        InMemoryStatusItem &button = platform.menuBarItem;
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        PanelModel model;
        model.setDeskName(QStringLiteral("Office"));
        PanelController panel(model, prefs, platform.shell(),
                              [](const HotKeyCombo &combo) { return combo.pcString(); });
        std::optional<StatusItemController> controller;
        controller.emplace(model, panel, platform.shell(), &button,
                           [](const QPoint &) { return QRect(0, 25, 1920, 1055); });
        QVERIFY(button.isShown());
        QCOMPARE(button.toolTip, QStringLiteral("Panorel: Office"));
        model.setDeskName(QStringLiteral("Home"));
        QTRY_COMPARE(button.toolTip, QStringLiteral("Panorel: Home"));

        button.frame = Rect{900.5, 0, 24, 24.5};
        button.press();
        QVERIFY(panel.isOpen());
        // The window as it was asked for: centred below the button, rounded outwards.
        QCOMPARE(panel.window()->geometry().top(), 25 + 6);
        QVERIFY(std::abs(panel.window()->geometry().center().x() - 912) <= 1);
        button.press();
        QVERIFY(!panel.isOpen());

        button.frame.reset(); // no screen: the panel shows all the same
        button.press();
        QVERIFY(panel.isOpen());
        controller.reset();
        QVERIFY(!button.isShown());
    }
};

QTEST_MAIN(StatusItemTests)
#include "StatusItemTests.moc"
