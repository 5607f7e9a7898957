#pragma once

#include "Contracts/DesktopRig.h"

#include <QObject>

namespace Panorel {

/// What the engines rely on in every platform's windows: accessibility, window list, workspace.
class AccessibilityContract : public QObject {
    Q_OBJECT

public:
    explicit AccessibilityContract(DesktopRig &rig) : m_rig(rig) {}

private Q_SLOTS:
    void init();
    void cleanup();

    void anApplicationsWindowsAreListedFrontToBack();
    void aWindowIsMovedAndResizedToThePixel();
    void aPositionAloneKeepsTheSize();
    void manyMovesAreSentBeforeTheFirstIsReadBack();
    void aWindowThatIsGoneReadsAsAbsent();
    void minimisedAndFullScreenWindowsAreTold();
    void raisingEndsWithTheLastOnTopAndTheFocusWhereItWas();
    void theWindowListAgreesWithAccessibility();
    void anUnknownProcessHasNoWindows();

private:
    ProcessIdentifier pidOf(const QString &application);
    WindowAttributes window(const QString &application, const QString &title);
    QStringList titles(const QString &application);

    DesktopRig &m_rig;
    QString m_first;
    QString m_second;
    QString m_other;
};

} // namespace Panorel
