// SPDX-License-Identifier: MIT

#include "views/style/Picker.h"

#include "views/style/ControlPainting.h"
#include "views/style/Menus.h"
#include "views/style/VisualStyle.h"

#include <QAccessible>
#include <QActionGroup>
#include <QMouseEvent>
#include <QStyleOptionComboBox>

#include <algorithm>

namespace trovell {

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
    const QSize wanted = comboBoxSize(m_visual, text);
    return {std::max(m_visual.scaled(m_leastWidth), wanted.width()), wanted.height()};
}

void Picker::showPopup()
{
    if (m_menu || count() == 0)
        return;
    m_menu = makeMenu();
    openMenuOver(*m_menu, *this, m_menu->actions().value(currentIndex()));
    update();
}

void Picker::hidePopup()
{
    if (m_menu)
        m_menu->close();
}

QMenu* Picker::makeMenu()
{
    auto* menu = new QMenu(this);
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

void Picker::initStyleOption(QStyleOptionComboBox* option) const
{
    QComboBox::initStyleOption(option);
    option->state.setFlag(QStyle::State_On, isOpen());
}

void Picker::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        showPopup();
}

void Picker::mouseReleaseEvent(QMouseEvent*) {}

} // namespace trovell
