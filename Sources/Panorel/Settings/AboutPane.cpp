#include "Panorel/Settings/AboutPane.h"

#include "Panorel/AppIcon.h"
#include "Panorel/Settings/UpdaterCenter.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/SettingRow.h"
#include "Panorel/UI/TextLabel.h"
#include "Panorel/UI/Toggle.h"

#include <QCoreApplication>
#include <QPainter>
#include <QVBoxLayout>

namespace Panorel {

namespace {

/// The program's icon, sharp at any scale.
class IconView : public QWidget {
public:
    IconView() { setFixedSize(72, 72); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        appIcon().paint(&painter, rect());
    }
};

QString nameOf(Licence licence)
{
    switch (licence) {
    case Licence::MIT:
        return AboutPane::tr("MIT License");
    case Licence::LGPL2OrLater:
        return AboutPane::tr("LGPL version 2.1 or later");
    case Licence::LGPL3:
        return AboutPane::tr("LGPL version 3");
    case Licence::LGPL2OrMPL2:
        return AboutPane::tr("LGPL version 2.1 or MPL version 2.0");
    }
    return {};
}

TextLabel *text(TextStyle style, const QString &content)
{
    auto *label = new TextLabel(style, TextLabel::Fit::Wrap);
    label->setText(content);
    return label;
}

} // namespace

AboutPane::AboutPane(SettingsModel &model, UpdaterCenter *updater,
                     const std::vector<LinkedLibrary> &libraries, QWidget *parent)
    : Page(tr("About"), parent), m_model(model), m_updater(updater)
{
    addProgram();
    addUsage();
    if (m_updater)
        addUpdates();
    addLicences(libraries);
    connect(&m_model, &SettingsModel::changed, this, &AboutPane::refresh);
    refresh();
}

void AboutPane::addProgram()
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(Metrics::tight);
    texts->addStretch();
    texts->addWidget(text(TextStyle::Title, QStringLiteral("Panorel")));
    texts->addWidget(
        text(TextStyle::Secondary, tr("Version %1").arg(QCoreApplication::applicationVersion())));
    texts->addWidget(text(TextStyle::Body, tr("Every window stays where you left it.")));
    texts->addStretch();
    auto *line = new QHBoxLayout;
    line->setSpacing(Metrics::large);
    line->addWidget(new IconView);
    line->addLayout(texts, 1);
    auto *card = new Card;
    card->body()->addLayout(line);
    addWidget(card);
}

void AboutPane::addUsage()
{
    m_restored = text(TextStyle::Body, {});
    m_restored->setObjectName(QStringLiteral("restored"));
    m_switched = text(TextStyle::Secondary, {});
    m_switched->setObjectName(QStringLiteral("switched"));
    auto *card = new Card;
    card->body()->setSpacing(Metrics::tight);
    card->body()->addWidget(m_restored);
    card->body()->addWidget(m_switched);
    addWidget(card);
}

void AboutPane::addUpdates()
{
    m_checks = new Toggle;
    connect(m_checks, &Toggle::clicked, m_updater,
            &UpdaterCenter::setAutomaticallyChecksForUpdates);
    auto *check = new PlainButton(tr("Check for Updates…"));
    connect(check, &PlainButton::clicked, m_updater, &UpdaterCenter::checkForUpdates);
    connect(m_updater, &UpdaterCenter::changed, this, &AboutPane::refresh);
    RowCard &card = *addCard(tr("Updates"));
    card.addRow(new SettingRow(tr("Check for updates automatically"), {}, m_checks));
    card.addRow(new SettingRow(tr("Look for a new version now"), {}, check));
}

void AboutPane::addLicences(const std::vector<LinkedLibrary> &libraries)
{
    std::vector<LinkedLibrary> all{{QStringLiteral("Panorel"), Licence::MIT},
                                   {QStringLiteral("Qt"), Licence::LGPL3}};
    all.insert(all.end(), libraries.begin(), libraries.end());
    RowCard &card = *addCard(tr("Licences"));
    for (const LinkedLibrary &library : all) {
        auto *licence = new TextLabel(TextStyle::Secondary);
        licence->setText(nameOf(library.licence));
        card.addRow(new SettingRow(library.name, {}, licence));
    }
}

void AboutPane::refresh()
{
    const UsageData &usage = m_model.usage();
    m_restored->setText(tr("So far, Panorel has put back %1 windows across %2 restores.")
                            .arg(usage.windowsPutBack)
                            .arg(usage.restores));
    m_switched->setText(tr("%1 scene switches · %2 stashes · %3 desks")
                            .arg(usage.sceneSwitches)
                            .arg(usage.stashUses)
                            .arg(usage.deskIDs.size()));
    if (m_checks)
        m_checks->setChecked(m_updater->automaticallyChecksForUpdates());
}

} // namespace Panorel
