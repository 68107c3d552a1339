// SPDX-License-Identifier: MIT

#include "views/style/PushButton.h"

#include "views/style/ControlPainting.h"
#include "views/style/Menus.h"
#include "views/style/Painting.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int chevronSize = 16;
constexpr int chevronGap = 4;
constexpr int chevronReach = 2; ///< into the padding
constexpr int titleLineHeight = 18;
constexpr double linkRadius = 5;

bool isFilled(PushButton::Kind kind)
{
    return kind == PushButton::Kind::prominent || kind == PushButton::Kind::destructive;
}

} // namespace

/// Of a box or a text, by what the pointer does; without `rest` there is none until it comes.
struct PushButton::Colors {
    std::optional<ColorToken> rest;
    ColorToken hover;
    ColorToken pressed;
};

/// In logical pixels, with the font factor.
struct PushButton::Measures {
    int leading = 0;
    int trailing = 0;
    int height = 0;
    double radius = 0;
    TextStyle text;
    int symbol = 0;
    int symbolRoom = 0; ///< with the gap after it
};

PushButton::Colors PushButton::colors() const
{
    using enum Palette::Color;
    if (m_look.shape == Shape::link)
        return {link, linkHover, linkPressed};
    switch (m_look.kind) {
    case Kind::prominent:
        return {action, actionHover, actionPressed};
    case Kind::destructive:
        return {destructiveFill, destructiveHover, destructivePressed};
    case Kind::plain:
        return {{}, ghostHover, ghostPressed};
    case Kind::softDestructive:
        return {{}, destructiveSoft, destructiveSoft};
    case Kind::bordered:
    case Kind::destructiveText:
        break;
    }
    return {controlBackground, controlHover, controlPressed};
}

PushButton::PushButton(const VisualStyle& visual, const QString& text, Kind kind, Scale scale,
                       QWidget* parent)
    : PushButton(visual, text,
                 {.shape = scale == Scale::small ? Shape::small : Shape::regular, .kind = kind},
                 parent)
{
}

PushButton::PushButton(const VisualStyle& visual, const QString& text, const Look& look,
                       QWidget* parent)
    : QPushButton(parent), m_visual(visual), m_look(look), m_hover(*this, visual)
{
    setText(text);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PushButton::setKind(Kind kind)
{
    m_look.kind = kind;
    updateGeometry();
    update();
}

void PushButton::setMenu(QMenu* menu, Qt::Alignment edge)
{
    m_menu = menu;
    m_menuEdge = edge;
    connect(this, &QAbstractButton::pressed, this, &PushButton::showMenu, Qt::UniqueConnection);
    connect(menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
    updateGeometry();
}

void PushButton::showMenu()
{
    if (!m_menu || m_menu->isVisible())
        return;
    setDown(true);
    openMenuBelow(*m_menu, *this, m_menuEdge);
}

void PushButton::setDisclosed(bool isDisclosed)
{
    if (m_isDisclosed == isDisclosed)
        return;
    m_isDisclosed = isDisclosed;
    QAccessible::State change;
    change.expanded = true;
    QAccessibleStateChangeEvent event(this, change);
    QAccessible::updateAccessibility(&event);
}

PushButton::Measures PushButton::measures() const
{
    const auto scaled = [this](auto length) { return m_visual.scaled(length); };
    const auto shape = [&](int leading, int trailing, int height, Radius radius,
                           const TextStyle& text, int symbol = 0, int gap = 0) -> Measures {
        return {leading,
                trailing,
                height,
                double(m_visual.radius(radius)),
                text,
                scaled(symbol),
                scaled(symbol) + scaled(gap)};
    };
    const QFont::Weight weight = isFilled(m_look.kind) ? QFont::DemiBold : QFont::Medium;
    const TextStyle body = m_visual.text(TextRole::body);
    switch (m_look.shape) {
    case Shape::regular: // the design's padding lies inside a border of one pixel
        return shape(scaled(14) + 1, scaled(14) + 1, scaled(Tokens::Size::controlHeight),
                     Radius::control, m_visual.text(TextRole::body, weight));
    case Shape::small:
        return shape(scaled(11) + 1, scaled(11) + 1, scaled(Tokens::Size::controlHeightSmall),
                     Radius::iconChoice, m_visual.text(TextRole::callout, weight));
    case Shape::twoLine: {
        TextStyle title = m_visual.text(TextRole::body, QFont::DemiBold);
        title.lineHeight = scaled(titleLineHeight);
        return shape(scaled(13), scaled(15), scaled(Tokens::Size::controlHeightTwoLine),
                     Radius::menu, title, 20, 10);
    }
    case Shape::row:
        return shape(scaled(8), scaled(8), scaled(30), Radius::small, body, 18, 8);
    case Shape::square: {
        const int side = scaled(m_look.box);
        const int inset = (side - scaled(m_look.symbol)) / 2;
        return shape(inset, side - inset - scaled(m_look.symbol), side, Radius::small, body,
                     m_look.symbol);
    }
    case Shape::link:
        break;
    }
    const TextStyle text = m_visual.text(TextRole::body, QFont::Medium);
    return {0, 0, text.lineHeight, linkRadius, text};
}

int PushButton::chevronRoom() const
{
    const bool isBox = m_look.shape == Shape::regular || m_look.shape == Shape::small;
    return menu() && isBox ? m_visual.scaled(chevronGap + chevronSize) : 0;
}

QSize PushButton::sizeHint() const
{
    const Measures own = measures();
    const int text = textWidth(own.text, m_look.title.isEmpty() ? this->text() : m_look.title);
    const int subtitle = textWidth(m_visual.text(TextRole::caption2), m_look.subtitle);
    const int texts = m_look.shape == Shape::square ? 0 : std::max(text, subtitle);
    return {own.leading + own.symbolRoom + texts + chevronRoom() + own.trailing, own.height};
}

FocusOutline PushButton::focusOutline() const
{
    return {rect(), measures().radius};
}

QColor PushButton::stateColor() const
{
    const Colors own = colors();
    if (isDown())
        return m_visual.color(own.pressed);
    QColor rest = m_visual.color(own.rest.value_or(own.hover));
    if (!own.rest)
        rest.setAlpha(0);
    return mixed(rest, m_visual.color(own.hover), m_hover.value());
}

QColor PushButton::textColor() const
{
    if (!isEnabled())
        return m_visual.color(ColorToken::labelDisabled);
    if (m_look.shape == Shape::link)
        return stateColor();
    switch (m_look.kind) {
    case Kind::prominent:
        return m_visual.color(ColorToken::onAction);
    case Kind::destructive:
        return m_visual.color(ColorToken::onDestructive);
    case Kind::destructiveText:
    case Kind::softDestructive:
        return m_visual.color(ColorToken::destructive);
    default:
        return m_visual.color(m_look.text);
    }
}

void PushButton::paintBackground(QPainter& painter) const
{
    const double radius = measures().radius;
    if (m_look.shape == Shape::link)
        return;
    if (!colors().rest || (isFilled(m_look.kind) && isEnabled()))
        paintBox(painter, rect(), radius, stateColor());
    else
        paintRaisedSurface(painter, m_visual, rect(), radius, stateColor(), isEnabled());
}

void PushButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    paintBackground(painter);
    const Measures own = measures();
    const auto place = [&](const QRect& part) {
        return QStyle::visualRect(layoutDirection(), rect(), part);
    };
    const QRect symbol(own.leading, (height() - own.symbol) / 2, own.symbol, own.symbol);
    m_visual.paintSymbol(painter, place(symbol), m_look.symbolName, textColor());
    const int left = own.leading + own.symbolRoom;
    const int right = width() - own.trailing - chevronRoom();
    paintTexts(painter, place({left, 0, right - left, height()}));
    const int side = m_visual.scaled(chevronSize);
    if (chevronRoom() > 0)
        m_visual.paintSymbol(
            painter, place({width() - own.trailing - side + chevronReach, 0, side, height()}),
            u"_ui/chevron.down"_s, textColor());
}

void PushButton::paintTexts(QPainter& painter, const QRect& room) const
{
    TextStyle title = measures().text;
    title.font.setUnderline(m_look.shape == Shape::link && isEnabled() && !isDown() &&
                            m_hover.value() > 0);
    if (m_look.shape != Shape::twoLine) {
        const bool isBox = m_look.shape == Shape::regular || m_look.shape == Shape::small;
        paintLine(painter, room, title, textColor(), text(),
                  isBox ? Qt::AlignHCenter : Qt::AlignLeft);
        return;
    }
    const TextStyle subtitle = m_visual.text(TextRole::caption2);
    const int top = (height() - title.lineHeight - subtitle.lineHeight) / 2;
    paintLine(painter, QRect(room.x(), top, room.width(), title.lineHeight), title, textColor(),
              text());
    const ColorToken quiet = !isEnabled()                     ? ColorToken::labelDisabled
                             : m_look.kind == Kind::prominent ? ColorToken::onActionSubtitle
                                                              : ColorToken::labelSecondary;
    paintLine(painter, QRect(room.x(), top + title.lineHeight, room.width(), subtitle.lineHeight),
              subtitle, m_visual.color(quiet), accessibleDescription());
}

void PushButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QPushButton::keyPressEvent(event);
    else if (menu())
        showMenu();
    else
        click();
}

ActionButton::ActionButton(const VisualStyle& visual, const QString& symbolName,
                           const QString& title, const QString& subtitle, Kind kind,
                           QWidget* parent)
    : PushButton(visual, title, {.shape = Shape::twoLine, .kind = kind, .symbolName = symbolName},
                 parent)
{
    // Two of them may share the width of a narrow window.
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setTexts(title, subtitle);
}

void ActionButton::setTexts(const QString& title, const QString& subtitle)
{
    look().title = title;
    look().subtitle = subtitle;
    setText(title);
    setAccessibleDescription(subtitle);
    updateGeometry();
    update();
}

void ActionButton::setBusyTexts(const QString& title, const QString& subtitle)
{
    setText(title);
    setAccessibleDescription(subtitle);
}

SymbolButton::SymbolButton(const VisualStyle& visual, const QString& symbolName,
                           const QString& name, Kind kind, QWidget* parent)
    : PushButton(visual, {},
                 {.shape = Shape::square,
                  .kind = kind,
                  .symbolName = symbolName,
                  .box = 28,
                  .symbol = kind == Kind::softDestructive ? 18 : 20},
                 parent)
{
    setAccessibleName(name);
    setToolTip(name);
}

void SymbolButton::setSizes(int box, int symbol)
{
    look().box = box;
    look().symbol = symbol;
    updateGeometry();
    update();
}

SymbolLink::SymbolLink(const VisualStyle& visual, const QString& symbolName, const QString& text,
                       ColorToken color, QWidget* parent)
    : PushButton(
          visual, text,
          {.shape = Shape::row, .kind = Kind::plain, .text = color, .symbolName = symbolName},
          parent)
{
    if (color == ColorToken::link)
        setCursor(Qt::PointingHandCursor);
}

LinkButton::LinkButton(const VisualStyle& visual, const QString& text, QWidget* parent)
    : PushButton(visual, text, {.shape = Shape::link}, parent)
{
    setCursor(Qt::PointingHandCursor);
}

} // namespace trovell
