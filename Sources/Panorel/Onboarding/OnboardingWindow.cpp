#include "Panorel/Onboarding/OnboardingWindow.h"

#include "Panorel/Onboarding/HowItWorksPage.h"
#include "Panorel/Onboarding/PageDots.h"
#include "Panorel/Onboarding/ReadyPage.h"
#include "Panorel/Onboarding/WelcomePage.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/TextButton.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>

namespace Panorel {

OnboardingWindow::OnboardingWindow(PermissionCenter &permission, Scheduler &scheduler,
                                   const OnboardingActions &actions, QWidget *parent)
    : QWidget(parent), m_pages(new QStackedWidget), m_dots(new PageDots),
      m_back(new TextButton(tr("Back"))), m_continue(new PrimaryButton(tr("Continue")))
{
    setWindowTitle(tr("Welcome to Panorel"));
    m_pages->addWidget(new WelcomePage);
    m_pages->addWidget(new HowItWorksPage);
    m_pages->addWidget(new ReadyPage(permission, scheduler, actions));
    m_dots->setCount(m_pages->count());

    auto *scrollArea = new QScrollArea; // for a screen that is lower than the texts are high
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setFocusPolicy(Qt::NoFocus);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->setWidgetResizable(true);
    scrollArea->setWidget(m_pages);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::large);
    layout->setSpacing(Metrics::large);
    layout->addWidget(scrollArea);
    layout->addWidget(makeFooter());
    orderTabsByLayout(*this);

    connect(m_back, &TextButton::clicked, this, [this] { showPage(page() - 1); });
    connect(m_continue, &PrimaryButton::clicked, this, &OnboardingWindow::goOn);
    showPage(0);
    setFixedSize(sizeHint());
}

/// The dots stay in the middle whatever the buttons are called.
QWidget *OnboardingWindow::makeFooter()
{
    m_back->setShortcut(QKeySequence::Back);
    m_continue->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto *footer = new QWidget;
    auto *layout = new QGridLayout(footer);
    layout->setContentsMargins({});
    layout->addWidget(m_back, 0, 0, Qt::AlignLeft | Qt::AlignVCenter);
    layout->addWidget(m_dots, 0, 0, 1, 2, Qt::AlignCenter);
    layout->addWidget(m_continue, 0, 1, Qt::AlignRight | Qt::AlignVCenter);
    return footer;
}

int OnboardingWindow::page() const
{
    return m_pages->currentIndex();
}

void OnboardingWindow::showPage(int page)
{
    if (page < 0)
        return;
    m_pages->setCurrentIndex(page);
    m_dots->setCurrent(page);
    m_continue->setTitle(page == m_pages->count() - 1 ? tr("Done") : tr("Continue"));
    m_continue->setFocus(Qt::OtherFocusReason); // Enter goes on, also where Back had the focus
    m_back->setVisible(page > 0);
}

void OnboardingWindow::goOn()
{
    if (page() + 1 < m_pages->count())
        showPage(page() + 1);
    else
        Q_EMIT finished();
}

QSize OnboardingWindow::sizeHint() const
{
    constexpr int contentWidth = 640;
    const QMargins margins = layout()->contentsMargins();
    const int height = m_pages->heightForWidth(contentWidth) + layout()->spacing()
                       + m_continue->sizeHint().height();
    return QSize(contentWidth, height).grownBy(margins).boundedTo(screen()->availableSize());
}

bool OnboardingWindow::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::ApplicationFontChange)
        setFixedSize(sizeHint());
    return QWidget::event(event);
}

void OnboardingWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        close(); // it comes again at the next start
    else
        QWidget::keyPressEvent(event);
}

void OnboardingWindow::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    Q_EMIT closed();
}

} // namespace Panorel
