// SPDX-License-Identifier: MIT

#include "views/style/Switch.h"

#include "views/style/Painting.h"

#include <QPainter>

#include <algorithm>

namespace trovell {

namespace {

constexpr int switchMilliseconds = 120;
constexpr int switchLabelGap = 16;
constexpr int narrowestLabel = 120;

} // namespace

Switch::Switch(const VisualStyle& visual, const QString& label, QWidget* parent)
    : QCheckBox(parent), m_visual(visual), m_knob(*this, visual, switchMilliseconds)
{
    setLabel(label);
    connect(this, &QCheckBox::toggled, this, [this](bool isOn) { m_knob.moveTo(isOn ? 1 : 0); });
}

void Switch::setLabel(const QString& label)
{
    m_label = label;
    if (!label.isEmpty())
        setAccessibleName(label);
    QSizePolicy policy(label.isEmpty() ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                       label.isEmpty() ? QSizePolicy::Fixed : QSizePolicy::Minimum);
    policy.setHeightForWidth(!label.isEmpty());
    setSizePolicy(policy);
    updateGeometry();
    update();
}

QSize Switch::sizeHint() const
{
    const QSize track = trackSize();
    if (m_label.isEmpty())
        return track;
    const TextStyle style = m_visual.text(TextRole::body);
    return {textWidth(style, m_label) + switchLabelGap + track.width(),
            std::max(style.lineHeight, track.height())};
}

QSize Switch::minimumSizeHint() const
{
    if (m_label.isEmpty())
        return trackSize();
    return {std::min(sizeHint().width(), narrowestLabel + switchLabelGap + trackSize().width()),
            sizeHint().height()};
}

int Switch::heightForWidth(int width) const
{
    const Paragraph label(m_label, m_visual.text(TextRole::body), labelRoom(width),
                          layoutDirection());
    return std::max(label.height(), trackSize().height());
}

FocusOutline Switch::focusOutline() const
{
    return {trackRect(), trackSize().height() / 2.0};
}

QSize Switch::trackSize() const
{
    return {m_visual.scaled(Tokens::Size::switchWidth),
            m_visual.scaled(Tokens::Size::switchHeight)};
}

QRect Switch::trackRect() const
{
    const QSize track = trackSize();
    const QRect trailing(QPoint(width() - track.width(), (height() - track.height()) / 2), track);
    return QStyle::visualRect(layoutDirection(), rect(), trailing);
}

int Switch::labelRoom(int width) const
{
    return std::max(1, width - switchLabelGap - trackSize().width());
}

void Switch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_label.isEmpty()) {
        const int room = labelRoom(width());
        const Paragraph label(m_label, m_visual.text(TextRole::body), room, layoutDirection());
        const QRect place = QStyle::visualRect(
            layoutDirection(), rect(), {0, (height() - label.height()) / 2, room, label.height()});
        label.paint(
            painter, place.topLeft(),
            m_visual.color(isEnabled() ? ColorToken::labelPrimary : ColorToken::labelDisabled));
    }
    paintGroup(painter, trackRect(), isEnabled() ? 1 : disabledOpacity,
               [this](QPainter& group) { paintSwitch(group); });
}

void Switch::paintSwitch(QPainter& painter) const
{
    const QRectF track = trackRect();
    const QColor fill = mixed(m_visual.color(ColorToken::switchOff),
                              m_visual.color(ColorToken::action), m_knob.value());
    paintBox(painter, track, track.height() / 2, fill);
    const double side = m_visual.scaled(Tokens::Size::switchKnob);
    const double inset = (track.height() - side) / 2;
    const double travel = track.width() - 2 * inset - side;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const double shift = travel * (isMirrored ? 1 - m_knob.value() : m_knob.value());
    const QRectF knob(track.left() + inset + shift, track.top() + inset, side, side);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_visual.color(ColorToken::switchKnob));
    painter.drawEllipse(knob);
}

} // namespace trovell
