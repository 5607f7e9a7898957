#include "Panorel/Settings/HotKeyRecorder.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace Panorel {

namespace {

/// The modifier that a key is; 0: it is another key.
quint32 modifierOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return HotKeyCombo::shift;
    case Qt::Key_Control:
        return HotKeyCombo::control;
    case Qt::Key_Alt:
        return HotKeyCombo::option;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return HotKeyCombo::command;
    default:
        return 0;
    }
}

quint32 modifiersOf(const QKeyEvent &event)
{
    quint32 held = 0;
    if (event.modifiers() & Qt::ShiftModifier)
        held |= HotKeyCombo::shift;
    if (event.modifiers() & Qt::ControlModifier)
        held |= HotKeyCombo::control;
    if (event.modifiers() & Qt::AltModifier)
        held |= HotKeyCombo::option;
    if (event.modifiers() & Qt::MetaModifier)
        held |= HotKeyCombo::command;
    // Some platforms report the modifiers as they were before the key of one went down or up.
    if (event.type() == QEvent::KeyPress)
        return held | modifierOf(event.key());
    return held & ~modifierOf(event.key());
}

quint32 withControlAndCommandSwapped(quint32 modifiers)
{
    constexpr quint32 both = HotKeyCombo::control | HotKeyCombo::command;
    const quint32 held = modifiers & both;
    return held == 0 || held == both ? modifiers : modifiers ^ both;
}

/// F1 to F20: nobody types with them, so they may stand alone.
bool isFunctionKey(quint32 keyCode)
{
    static constexpr quint32 functionKeys[] = {122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                                               103, 111, 105, 107, 113, 106, 64, 79,  80,  90};
    return std::ranges::find(functionKeys, keyCode) != std::end(functionKeys);
}

constexpr quint32 namelessKey = 0xffff;
const QString noName = QStringLiteral("?"); ///< what a nameless key reads

} // namespace

HotKeyRecorder::HotKeyRecorder(const SettingsEnvironment &environment, TextOf textOf,
                               QWidget *parent)
    : ActionControl({}, parent), m_environment(environment), m_textOf(std::move(textOf))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &ActionControl::clicked, this, [this] {
        if (m_isRecording)
            stop();
        else
            start();
    });
    describe();
}

HotKeyRecorder::~HotKeyRecorder()
{
    if (m_isRecording && m_environment.resumeHotKeys)
        m_environment.resumeHotKeys();
}

void HotKeyRecorder::setCombo(const std::optional<HotKeyCombo> &combo)
{
    m_combo = combo;
    describe();
}

QString HotKeyRecorder::text() const
{
    if (m_isRecording)
        return m_held ? heldText() : tr("Type the keys…");
    return m_combo ? m_textOf(*m_combo) : tr("Record keys");
}

/// The modifiers as the platform writes them, without a key: "Ctrl+Alt+".
QString HotKeyRecorder::heldText() const
{
    QString held = m_textOf({namelessKey, m_held});
    held.chop(noName.size());
    return held + QStringLiteral("…");
}

void HotKeyRecorder::describe()
{
    setAccessibleDescription(text());
    update();
}

void HotKeyRecorder::start()
{
    if (!m_environment.keyCodeOf)
        return;
    m_isRecording = true;
    m_held = 0;
    setFocus(Qt::OtherFocusReason);
    if (m_environment.suspendHotKeys)
        m_environment.suspendHotKeys();
    grabKeyboard(); // also what the window manager would take for itself
    describe();
    Q_EMIT recordingChanged();
}

void HotKeyRecorder::stop()
{
    if (!m_isRecording)
        return;
    m_isRecording = false;
    releaseKeyboard();
    if (m_environment.resumeHotKeys)
        m_environment.resumeHotKeys();
    describe();
    Q_EMIT recordingChanged();
}

void HotKeyRecorder::finish(const std::optional<HotKeyCombo> &combo)
{
    stop();
    Q_EMIT recorded(combo);
}

bool HotKeyRecorder::event(QEvent *event)
{
    if (!m_isRecording)
        return ActionControl::event(event);
    switch (event->type()) {
    case QEvent::ShortcutOverride: // or a menu's or window's shortcut would get it
        event->accept();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto *key = static_cast<QKeyEvent *>(event);
        const bool leaves = (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
                            && !(key->modifiers() & ~Qt::ShiftModifier);
        if (leaves) {
            stop();
            return ActionControl::event(event);
        }
        onKey(*key);
        event->accept();
        return true;
    }
    default:
        return ActionControl::event(event);
    }
}

void HotKeyRecorder::onKey(const QKeyEvent &event)
{
    if (event.isAutoRepeat())
        return;
    m_held = modifiersOf(event);
    if (m_environment.isCommandReportedAsControl)
        m_held = withControlAndCommandSwapped(m_held);
    describe();
    if (event.type() == QEvent::KeyRelease || modifierOf(event.key()))
        return;
    const bool isAlone = m_held == 0;
    if (isAlone && event.key() == Qt::Key_Escape)
        return stop();
    if (isAlone && (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete))
        return finish({});
    onCombination(event);
}

void HotKeyRecorder::onCombination(const QKeyEvent &event)
{
    const std::optional<quint32> keyCode =
        m_environment.keyCodeOf(event.nativeScanCode(), event.nativeVirtualKey());
    const HotKeyCombo combo{keyCode.value_or(namelessKey), m_held};
    const QString reason = refusal(combo);
    if (reason.isEmpty())
        finish(combo);
    else
        Q_EMIT refused(reason);
}

/// Empty: it can be used.
QString HotKeyRecorder::refusal(const HotKeyCombo &combo) const
{
    if (isFunctionKey(combo.keyCode))
        return {};
    if (m_textOf({combo.keyCode, 0}) == noName)
        return tr("This key can't be part of a shortcut.");
    if (combo.modifiers == 0)
        return tr("Add a modifier: a shortcut takes its keys away from every other program.");
    if (combo.modifiers == HotKeyCombo::shift)
        return tr("Shift alone is for typing. Add another modifier.");
    return {};
}

void HotKeyRecorder::focusOutEvent(QFocusEvent *event)
{
    stop();
    ActionControl::focusOutEvent(event);
}

void HotKeyRecorder::hideEvent(QHideEvent *event)
{
    stop();
    ActionControl::hideEvent(event);
}

QSize HotKeyRecorder::sizeHint() const
{
    constexpr int charactersWide = 18;
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    // The same whatever the key: what asks for one fits in any language.
    int width = charactersWide * metrics.averageCharWidth();
    for (const QString &request : {tr("Record keys"), tr("Type the keys…")})
        width = std::max(width, metrics.horizontalAdvance(request) + 1);
    return {width + 2 * Metrics::small,
            std::max(Metrics::hitArea, metrics.height() + Metrics::small)};
}

void HotKeyRecorder::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = theme.window;
    if (face() != Face::Rest)
        fill = face() == Face::Hover ? theme.hover : theme.pressed;
    const double line = m_isRecording ? Metrics::focusRing : 1;
    painter.setPen(QPen(m_isRecording ? theme.accentInk : theme.border, line));
    painter.setBrush(m_isRecording ? theme.window : fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                            Metrics::controlRadius - line / 2, Metrics::controlRadius - line / 2);

    const QRect area = rect().adjusted(Metrics::small, 0, -Metrics::small, 0);
    painter.setFont(fontOf(TextStyle::Body));
    if (m_isRecording)
        painter.setPen(theme.accentInk);
    else
        painter.setPen(m_combo ? theme.text : theme.secondaryText);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
    if (!m_isRecording)
        paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel
