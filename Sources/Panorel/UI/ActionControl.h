#pragma once

#include <QAbstractButton>

namespace Panorel {

struct Theme;

/// What every pressable thing of ours has in common: Enter presses it like Space, the focus ring
/// shows once the keyboard is used, and the name that is read out is its title. The title is no
/// button text, which would take an "&" in a scene's name for a shortcut.
class ActionControl : public QAbstractButton {
    Q_OBJECT

public:
    explicit ActionControl(const QString &title, QWidget *parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    QSize minimumSizeHint() const override;

protected:
    enum class Face { Rest, Hover, Pressed };

    Face face() const;
    /// A rounded face behind the contents; nothing at rest.
    void paintFace(QPainter &painter, const Theme &theme) const;
    void paintFocusRing(QPainter &painter, const QColor &color, const QRectF &area) const;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_title;
};

} // namespace Panorel
