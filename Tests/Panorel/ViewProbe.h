#pragma once

#include "Panorel/UI/ActionControl.h"
#include "Panorel/UI/TextLabel.h"

#include <QApplication>
#include <QDir>
#include <QTest>

namespace Panorel {

/// Looks at a window as its user does: by what shows and what it is called.
struct ViewProbe {
    QWidget &root;

    /// The one that asks something.
    static ViewProbe dialog()
    {
        settle();
        if (!QApplication::activeModalWidget())
            qFatal("no dialog");
        return {*QApplication::activeModalWidget()};
    }
    void open(const QSize &size) const
    {
        root.resize(size);
        root.show();
        if (!QTest::qWaitForWindowActive(&root))
            qFatal("it does not show");
        settle();
    }
    /// From top to bottom.
    template <typename Widget> QList<Widget *> shown(const QString &name = {}) const
    {
        auto widgets = root.findChildren<Widget *>(name);
        widgets.removeIf([](const Widget *widget) { return !widget->isVisible(); });
        std::ranges::stable_sort(widgets, {}, [this](const Widget *widget) {
            return widget->mapTo(&root, QPoint()).y();
        });
        return widgets;
    }
    /// The nth of that title; null where there is none.
    ActionControl *find(const char *title, int nth = 0) const
    {
        for (ActionControl *control : shown<ActionControl>()) {
            if (control->title() == QString::fromUtf8(title) && nth-- == 0)
                return control;
        }
        return nullptr;
    }
    void click(const char *title, int nth = 0) const
    {
        ActionControl *control = find(title, nth);
        if (!control)
            qFatal("nothing is called %s", title);
        QTest::mouseClick(control, Qt::LeftButton);
        QCoreApplication::processEvents(); // what was pressed may be gone now
    }
    bool reads(const char *text) const
    {
        for (const TextLabel *label : shown<TextLabel>()) {
            if (label->text() == QString::fromUtf8(text))
                return true;
        }
        return false;
    }
    /// Of the label or status line of that name; empty where it does not show.
    QString text(const char *name) const
    {
        const auto found = shown<QWidget>(QString::fromLatin1(name));
        if (found.isEmpty())
            return {};
        const auto *label = qobject_cast<QLabel *>(found.at(0));
        return label ? label->text() : found.at(0)->findChild<QLabel *>()->text();
    }
    /// With the keyboard alone.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(root.windowHandle(), key, modifiers);
    }
    /// The name of what has the keyboard.
    QString focused() const
    {
        const QWidget *widget = root.focusWidget();
        return widget ? widget->accessibleName() : QString();
    }
    bool tabTo(const QWidget *control) const
    {
        root.activateWindow(); // as a window manager does when a sheet over it closes
        if (!QTest::qWaitForWindowActive(&root))
            return false;
        for (int i = 0; control && i < 60 && !control->hasFocus(); ++i)
            press(Qt::Key_Tab);
        return control && control->hasFocus();
    }
    /// What is left of what went only when the event loop ran goes now.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Light; and dark, twice as dense, with a font 1.5 times as large. In both, the text has the
    /// height that it needs and, in the end, the view is as it should be.
    void photograph(
        const QByteArray &name, const std::function<bool()> &isRight = [] { return true; }) const
    {
        const QPalette palette = QApplication::palette();
        const QFont font = QApplication::font();
        QApplication::setPalette(QPalette(QColor(0xfafafb)));
        save(name + "-light", 1, isRight);
        QApplication::setPalette(QPalette(QColor(0x26282c)));
        QFont large = font;
        large.setPointSizeF(font.pointSizeF() * 1.5);
        setFont(large);
        save(name + "-dark-large-200", 2, isRight);
        setFont(font);
        QApplication::setPalette(palette);
    }

private:
    /// The event comes by itself only while QApplication::exec() runs.
    static void setFont(const QFont &font)
    {
        QApplication::setFont(font);
        for (QWidget *widget : QApplication::allWidgets()) {
            QEvent change(QEvent::ApplicationFontChange);
            QCoreApplication::sendEvent(widget, &change);
        }
    }
    bool cutsText() const
    {
        return std::ranges::any_of(shown<TextLabel>(), [](const TextLabel *label) {
            return label->height() < label->heightForWidth(label->width());
        });
    }
    void save(const QByteArray &name, double scale, const std::function<bool()> &isRight) const
    {
        settle();
        // A larger font reaches a page in more than one turn of the event loop.
        if (!QTest::qWaitFor([&] { return !cutsText() && isRight(); }))
            qFatal("text is cut, or the size is wrong, in %s", name.constData());
        QImage picture(root.size() * scale, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        picture.setDevicePixelRatio(scale);
        root.render(&picture);
        const QDir folder(QStringLiteral(PANOREL_SCREENSHOTS));
        if (!folder.mkpath(QStringLiteral("."))
            || !picture.save(folder.filePath(QString::fromLatin1(name + ".png"))))
            qFatal("no screenshot %s", name.constData());
    }
};

} // namespace Panorel
