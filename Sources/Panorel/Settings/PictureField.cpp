#include "Panorel/Settings/PictureField.h"

#include "Panorel/Settings/PicturePreview.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextButton.h"
#include "Panorel/UI/TextLabel.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>

namespace Panorel {

namespace {

QString pictureFilter()
{
    QStringList patterns;
    for (const QByteArray &format : QImageReader::supportedImageFormats())
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    return QStringLiteral("(%1)").arg(patterns.join(u' '));
}

} // namespace

PictureField::PictureField(QWidget *parent)
    : QWidget(parent), m_preview(new PicturePreview), m_name(new TextLabel(TextStyle::Secondary)),
      m_choose(new TextButton(tr("Choose…"))), m_remove(new TextButton(tr("Remove")))
{
    m_name->setObjectName(QStringLiteral("pictureName"));
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    buttons->addWidget(m_choose);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    // The name begins where the buttons' texts do.
    auto *nameLine = new QHBoxLayout;
    nameLine->setContentsMargins(Metrics::small, 0, 0, 0);
    nameLine->addWidget(m_name);
    column->addLayout(nameLine);
    column->addLayout(buttons);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::tight);
    layout->addWidget(m_preview);
    layout->addLayout(column, 1);
    m_choose->setAccessibleDescription(tr("Desktop picture"));
    m_remove->setAccessibleDescription(tr("Desktop picture"));
    connect(m_choose, &TextButton::clicked, this, &PictureField::choose);
    connect(m_remove, &TextButton::clicked, this, [this] { Q_EMIT chosen({}); });
    setPath({});
}

void PictureField::setPath(const std::optional<QString> &path)
{
    m_path = path;
    const bool isReadable = m_preview->load(path.value_or(QString()));
    m_remove->setVisible(path.has_value());
    constexpr int longestName = 200; // a file's is elided, our own words are not
    m_name->setMaximumWidth(path ? longestName : QWIDGETSIZE_MAX);
    if (!path)
        m_name->setText(tr("Leave it as it is"));
    else if (isReadable)
        m_name->setText(QFileInfo(*path).fileName());
    else
        m_name->setText(tr("%1 can't be read").arg(QFileInfo(*path).fileName()));
}

void PictureField::choose()
{
    auto *dialog = new QFileDialog(window(), tr("Choose a picture"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(
        {tr("Pictures") + u' ' + pictureFilter(), tr("All files") + QStringLiteral(" (*)")});
    if (m_path)
        dialog->setDirectory(QFileInfo(*m_path).absolutePath());
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString &path) { Q_EMIT chosen(path); });
    dialog->open();
}

} // namespace Panorel
