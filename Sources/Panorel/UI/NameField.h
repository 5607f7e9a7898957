#pragma once

#include "Panorel/UI/TextStyle.h"

#include <QLineEdit>

namespace Panorel {

/// A name that the user changes in its place: it looks like text, elided and with a hint of a
/// field under the pointer, until it is clicked or reached by keyboard. Enter, or going elsewhere,
/// takes the new name; Escape brings the old one back, and so does an empty one.
class NameField : public QLineEdit {
    Q_OBJECT

public:
    /// `purpose` is what is read out, for example "Scene name".
    NameField(TextStyle style, const QString &purpose, QWidget *parent = nullptr);

    /// Not shown while the user is writing another.
    void setName(const QString &name);
    const QString &name() const { return m_name; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Another name, of one line, not empty.
    void renamed(const QString &name);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void take();

    TextStyle m_style;
    QString m_name;
};

} // namespace Panorel
