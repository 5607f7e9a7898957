#pragma once

#include <QPixmap>
#include <QWidget>

namespace Panorel {

/// A small picture of a file, filling a frame of a display's shape. What can't be read, and no
/// file, is a symbol.
class PicturePreview : public QWidget {
    Q_OBJECT

public:
    explicit PicturePreview(QWidget *parent = nullptr);

    /// Empty: none. Whether it is a picture that can be shown.
    bool load(const QString &path);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_picture;
};

} // namespace Panorel
