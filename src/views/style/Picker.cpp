// SPDX-License-Identifier: MIT

#include "views/style/Picker.h"

#include "views/style/Painting.h"
#include "views/style/RaisedSurface.h"
#include "views/style/VisualStyle.h"

#include <QAccessible>
#include <QActionGroup>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

// One pixel of each is the border.
constexpr int pickerLeadingPadding = 13;
constexpr int pickerTrailingPadding = 9;
constexpr int pickerSymbolSize = 16;
constexpr int pickerSymbolGap = 8;

} // namespace

Picker::Picker(const VisualStyle& visual, const QString& name, int width, QWidget* parent)
    : QComboBox(parent), m_visual(visual), m_leastWidth(width)
{
    setAccessibleName(name);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QComboBox::currentTextChanged, this, [this] {
        QAccessibleEvent event(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    });
}

QSize Picker::sizeHint() const
{
    int text = 0;
    for (int i = 0; i < count(); ++i)
        text = std::max(text, textWidth(m_visual.text(TextRole::body), itemText(i)));
    const int around = m_visual.scaledSum(
        {pickerLeadingPadding, pickerSymbolGap, pickerSymbolSize, pickerTrailingPadding});
    return {std::max(m_visual.scaled(m_leastWidth), text + around),
            m_visual.scaled(Tokens::Size::controlHeight)};
}

FocusOutline Picker::focusOutline() const
{
    return {rect(), static_cast<double>(m_visual.radius(Radius::control))};
}

void Picker::showPopup()
{
    if (m_menu || count() == 0)
        return;
    m_menu = makeMenu();
    m_menu->openOver({mapToGlobal(QPoint()), size()}, m_menu->actions().value(currentIndex()));
    update();
}

void Picker::hidePopup()
{
    if (m_menu)
        m_menu->close();
}

PopupMenu* Picker::makeMenu()
{
    auto* menu = new PopupMenu(m_visual, this);
    auto* group = new QActionGroup(menu);
    for (int i = 0; i < count(); ++i) {
        QAction* action = group->addAction(itemText(i));
        action->setCheckable(true);
        action->setChecked(i == currentIndex());
        menu->addAction(action);
        connect(action, &QAction::triggered, this, [this, i] { choose(i); });
    }
    connect(menu, &QMenu::aboutToHide, this, [this, menu] {
        m_menu = nullptr;
        menu->deleteLater();
        update();
    });
    return menu;
}

void Picker::choose(int index)
{
    setCurrentIndex(index);
    Q_EMIT
    activated(index);
    Q_EMIT
    textActivated(itemText(index));
}

QColor Picker::fillColor() const
{
    return m_visual.color(m_menu        ? ColorToken::controlPressed
                          : m_isHovered ? ColorToken::controlHover
                                        : ColorToken::controlBackground);
}

void Picker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    paintRaisedSurface(painter, m_visual, rect(), m_visual.radius(Radius::control), fillColor(),
                       isEnabled());
    const auto place = [&](const QRect& part) {
        return QStyle::visualRect(layoutDirection(), rect(), part);
    };
    const auto tint = [&](ColorToken enabled) {
        return m_visual.color(isEnabled() ? enabled : ColorToken::labelDisabled);
    };
    const int side = m_visual.scaled(pickerSymbolSize);
    const int symbolLeft = width() - m_visual.scaled(pickerTrailingPadding) - side;
    const int textLeft = m_visual.scaled(pickerLeadingPadding);
    const int textRoom = symbolLeft - m_visual.scaled(pickerSymbolGap) - textLeft;
    paintLine(painter, place({textLeft, 0, textRoom, height()}), m_visual.text(TextRole::body),
              tint(ColorToken::labelPrimary), currentText());
    m_visual.paintSymbol(painter, place({symbolLeft, 0, side, height()}), u"_ui/chevron.up.down"_s,
                         tint(ColorToken::labelSecondary));
}

bool Picker::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        m_isHovered = event->type() == QEvent::Enter;
        update();
    } else if (event->type() == QEvent::FontChange) {
        updateGeometry();
    }
    return QComboBox::event(event);
}

void Picker::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        showPopup();
}

void Picker::mouseReleaseEvent(QMouseEvent*) {}

void Picker::wheelEvent(QWheelEvent* event)
{
    // Scrolling a page must not change the pickers that pass below the pointer.
    event->ignore();
}

} // namespace trovell
