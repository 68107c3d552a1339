// SPDX-License-Identifier: MIT

#include "views/style/Accessibility.h"

#include "views/style/Picker.h"
#include "views/style/PushButton.h"

#include <QAbstractItemView>
#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QApplication>
#include <QMenu>

namespace trovell {

namespace {

constexpr char roleProperty[] = "trovellAccessibleRole";

/// A widget of the role it was given. A graphic without a name is a decoration, which assistive
/// tools pass over.
class AccessiblePart : public QAccessibleWidget {
public:
    AccessiblePart(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (role() == QAccessible::Graphic && widget()->accessibleName().isEmpty()) {
            state.invisible = true;
            state.focusable = false;
        }
        state.busy = role() == QAccessible::ProgressBar;
        state.modal = role() == QAccessible::Dialog;
        return state;
    }

    QAccessibleInterface* parent() const override
    {
        // A row lies in the viewport of its list.
        const QWidget* around = widget()->parentWidget();
        auto* list = around ? qobject_cast<QAbstractItemView*>(around->parentWidget()) : nullptr;
        return list ? QAccessible::queryAccessibleInterface(list) : QAccessibleWidget::parent();
    }
};

/// A list whose rows are widgets: those are its children, in the order of the rows.
class AccessibleRows : public AccessiblePart {
public:
    AccessibleRows(QAbstractItemView* list, QAccessible::Role role) : AccessiblePart(list, role) {}

    int childCount() const override { return static_cast<int>(rows().size()); }

    QAccessibleInterface* child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(rows().value(index));
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return static_cast<int>(rows().indexOf(child->object()));
    }

private:
    QObjectList rows() const
    {
        const auto* list = static_cast<QAbstractItemView*>(widget());
        QObjectList rows;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            rows.append(list->indexWidget(list->model()->index(row, 0)));
        rows.removeAll(nullptr);
        return rows;
    }
};

/// A push button with or without a menu. Qt's own face for one is tied to the menu of QPushButton.
class AccessibleButton : public QAccessibleWidget {
public:
    explicit AccessibleButton(PushButton* button) : QAccessibleWidget(button) {}

    QAccessible::Role role() const override
    {
        return button()->menu() ? QAccessible::ButtonMenu : QAccessible::Button;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && text.isEmpty() ? button()->text() : text;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button()->isDown();
        state.hasPopup = button()->menu() != nullptr;
        state.expanded = button()->menu() && button()->menu()->isVisible();
        if (const std::optional<bool> isDisclosed = button()->isDisclosed()) {
            state.expandable = true;
            state.expanded = *isDisclosed;
            state.collapsed = !*isDisclosed;
        }
        return state;
    }

    QStringList actionNames() const override
    {
        if (!button()->isEnabled())
            return {};
        return {button()->menu() ? showMenuAction() : pressAction(), setFocusAction()};
    }

    void doAction(const QString& name) override
    {
        if (name != showMenuAction() && name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (button()->menu())
            button()->showMenu();
        else
            button()->click();
    }

private:
    PushButton* button() const { return static_cast<PushButton*>(widget()); }
};

/// On Linux Qt names a combo box by its current text. Here the name says what is chosen, and the
/// description which; the choices are the entries of the menu.
class AccessiblePicker : public QAccessibleWidget {
public:
    explicit AccessiblePicker(Picker* picker) : QAccessibleWidget(picker, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return picker()->currentText();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = picker()->isOpen();
        return state;
    }

    // The view that a QComboBox keeps is never shown.
    int childCount() const override { return 0; }

    QStringList actionNames() const override
    {
        if (!picker()->isEnabled())
            return {};
        return {showMenuAction(), pressAction(), setFocusAction()};
    }

    void doAction(const QString& name) override
    {
        if (name == showMenuAction() || name == pressAction())
            picker()->showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    Picker* picker() const { return static_cast<Picker*>(widget()); }
};

/// Menus are windows that Qt leaves out of the application's tree, so that assistive tools find
/// their entries only by the focus. Here the open one is the application's last child.
class AccessibleTrovell : public QAccessibleApplication {
public:
    int childCount() const override
    {
        return QAccessibleApplication::childCount() + (openMenu() ? 1 : 0);
    }

    QAccessibleInterface* child(int index) const override
    {
        return index == QAccessibleApplication::childCount() ? openMenu()
                                                             : QAccessibleApplication::child(index);
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child == openMenu() ? QAccessibleApplication::childCount()
                                   : QAccessibleApplication::indexOfChild(child);
    }

private:
    static QAccessibleInterface* openMenu()
    {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu ? QAccessible::queryAccessibleInterface(menu) : nullptr;
    }
};

/// Qt asks for the most derived class of an object first, so its type alone decides.
QAccessibleInterface* makePart(const QString&, QObject* object)
{
    if (qobject_cast<QApplication*>(object))
        return new AccessibleTrovell;
    if (auto* button = qobject_cast<PushButton*>(object))
        return new AccessibleButton(button);
    if (auto* picker = qobject_cast<Picker*>(object))
        return new AccessiblePicker(picker);
    const QVariant property = object->property(roleProperty);
    if (!property.isValid())
        return nullptr;
    const auto role = static_cast<QAccessible::Role>(property.toInt());
    if (auto* list = qobject_cast<QAbstractItemView*>(object))
        return new AccessibleRows(list, role);
    return new AccessiblePart(static_cast<QWidget*>(object), role);
}

} // namespace

void installAccessibleParts()
{
    QAccessible::installFactory(&makePart);
}

void setAccessibleRole(QWidget& widget, QAccessible::Role role)
{
    widget.setProperty(roleProperty, role);
}

void announce(QWidget& widget, const QString& text)
{
    widget.setAccessibleName(text);
    QAccessibleEvent event(&widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace trovell
