#pragma once

#include <QWidget>

#include <optional>

namespace Panorel {

class PicturePreview;
class TextButton;
class TextLabel;

/// A desktop picture: a preview, its file's name, and what can be done about it. A file that can't
/// be shown is said to be so and kept: it may be on a disk that is not there now.
class PictureField : public QWidget {
    Q_OBJECT

public:
    explicit PictureField(QWidget *parent = nullptr);

    /// Absent: no picture.
    void setPath(const std::optional<QString> &path);

Q_SIGNALS:
    /// By the user; absent to remove it.
    void chosen(const std::optional<QString> &path);

private:
    void choose();

    std::optional<QString> m_path;
    PicturePreview *m_preview;
    TextLabel *m_name;
    TextButton *m_choose;
    TextButton *m_remove;
};

} // namespace Panorel
