// SPDX-License-Identifier: MIT

#include "views/style/ChoiceRow.h"

#include "views/style/Fade.h"
#include "views/style/FocusRing.h"
#include "views/style/Layouts.h"
#include "views/style/Painting.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>

namespace trovell {

namespace {

constexpr int symbolGap = 6;
constexpr int symbolSize = 18;
constexpr int swatchGap = 14;
constexpr int ringGap = 2;

/// How far the ring of a selected swatch reaches beyond it.
int ringReach(const VisualStyle& visual)
{
    return ringGap + visual.tokens().size(Tokens::Size::swatchRing);
}

/// How far an arrow key moves along the row, in reading order; 0 for every other key.
int stepOf(int key, Qt::LayoutDirection direction)
{
    const int forward = direction == Qt::RightToLeft ? -1 : 1;
    switch (key) {
    case Qt::Key_Right:
        return forward;
    case Qt::Key_Left:
        return -forward;
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Up:
        return -1;
    default:
        return 0;
    }
}

} // namespace

/// One choice: a radio button that is only painted differently.
class ChoiceButton : public QRadioButton, public FocusOutlined {
public:
    ChoiceButton(const VisualStyle& visual, const QString& identifier, bool isSwatch)
        : m_visual(visual), m_identifier(identifier), m_isSwatch(isSwatch), m_hover(*this, visual)
    {
        setAccessibleName(identifier);
        setFocusPolicy(Qt::NoFocus);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    const QString& identifier() const { return m_identifier; }

    /// A swatch has room for the ring of a selected one, so that nothing moves.
    QSize sizeHint() const override
    {
        const int swatch = m_visual.scaled(Tokens::Size::swatch) + 2 * ringReach(m_visual);
        const QSize symbol = m_visual.tokens().iconChoice();
        return m_isSwatch
                   ? QSize(swatch, swatch)
                   : QSize(m_visual.scaled(symbol.width()), m_visual.scaled(symbol.height()));
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

    FocusOutline focusOutline() const override
    {
        if (!m_isSwatch)
            return {rect(), double(m_visual.radius(Radius::iconChoice))};
        const int inset = isChecked() ? 0 : ringReach(m_visual);
        const QRectF box = rect().adjusted(inset, inset, -inset, -inset);
        return {box, box.height() / 2};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (m_isSwatch)
            paintSwatch(painter);
        else
            paintSymbol(painter);
    }

    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    void paintSwatch(QPainter& painter) const
    {
        painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
        const double inset = ringReach(m_visual);
        const QRectF swatch = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        paintBox(painter, swatch, swatch.height() / 2, m_visual.accentColor(m_identifier));
        if (isChecked())
            paintRing(painter, rect(), height() / 2.0,
                      m_visual.tokens().size(Tokens::Size::swatchRing),
                      m_visual.color(ColorToken::labelPrimary));
    }

    void paintSymbol(QPainter& painter) const
    {
        paintBox(painter, rect(), m_visual.radius(Radius::iconChoice), fillColor());
        const double side = m_visual.scaled(symbolSize);
        const QPointF corner((width() - side) / 2, (height() - side) / 2);
        m_visual.paintSymbol(painter, QRectF(corner, QSizeF(side, side)), m_identifier,
                             m_visual.color(!isEnabled()  ? ColorToken::labelDisabled
                                            : isChecked() ? ColorToken::link
                                                          : ColorToken::labelPrimary));
    }

    QColor fillColor() const
    {
        if (isChecked())
            return m_visual.color(ColorToken::brandFill15);
        if (isDown())
            return m_visual.color(ColorToken::ghostPressed);
        QColor hover = m_visual.color(ColorToken::ghostHover);
        hover.setAlphaF(hover.alphaF() * static_cast<float>(m_hover.value()));
        return hover;
    }

    const VisualStyle& m_visual;
    QString m_identifier;
    bool m_isSwatch;
    HoverFade m_hover;
};

ChoiceRow::ChoiceRow(const VisualStyle& visual, Look look, const QString& name,
                     const QStringList& identifiers, QWidget* parent)
    : Group(parent)
{
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    new RowLayout(this, look == Look::swatch ? swatchGap - 2 * ringReach(visual) : symbolGap);
    for (const QString& identifier : identifiers)
        addButton(new ChoiceButton(visual, identifier, look == Look::swatch));
    makeTabStop(m_buttons.value(0));
}

std::optional<QString> ChoiceRow::selected() const
{
    for (const ChoiceButton* button : m_buttons)
        if (button->isChecked())
            return button->identifier();
    return std::nullopt;
}

void ChoiceRow::setSelected(const QString& identifier)
{
    ChoiceButton* stop = m_buttons.value(0);
    for (ChoiceButton* button : std::as_const(m_buttons)) {
        // An exclusive button cannot be unchecked; an unknown choice leaves all of them so.
        const QSignalBlocker quietly(button);
        button->setAutoExclusive(false);
        button->setChecked(button->identifier() == identifier);
        button->setAutoExclusive(true);
        if (button->isChecked())
            stop = button;
    }
    makeTabStop(stop);
}

void ChoiceRow::addButton(ChoiceButton* button)
{
    layout()->addWidget(button);
    m_buttons.append(button);
    button->installEventFilter(this);
    connect(button, &QAbstractButton::toggled, this, [this, button](bool isOn) {
        if (!isOn)
            return;
        makeTabStop(button);
        Q_EMIT chosen(button->identifier());
    });
}

/// Arrow keys only move the focus, all around the row. Qt's own would select.
bool ChoiceRow::eventFilter(QObject* button, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int step = stepOf(static_cast<QKeyEvent*>(event)->key(), layoutDirection());
    if (step == 0)
        return false;
    const qsizetype count = m_buttons.size();
    const qsizetype current = m_buttons.indexOf(static_cast<ChoiceButton*>(button));
    ChoiceButton* next = m_buttons[(current + step + count) % count];
    makeTabStop(next);
    next->setFocus(Qt::TabFocusReason);
    return true;
}

void ChoiceRow::makeTabStop(ChoiceButton* stop)
{
    for (ChoiceButton* button : std::as_const(m_buttons))
        button->setFocusPolicy(button == stop ? Qt::TabFocus : Qt::NoFocus);
}

} // namespace trovell
