// SPDX-License-Identifier: MIT

#include "views/style/Accessibility.h"

#include "views/style/Picker.h"
#include "views/style/StyledButton.h"

#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QApplication>
#include <QMenu>

namespace trovell {

namespace {

/// Something to look at that says nothing: assistive tools pass over what is invisible.
class AccessibleDecoration : public QAccessibleWidget {
public:
    explicit AccessibleDecoration(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Graphic)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.invisible = true;
        state.focusable = false;
        return state;
    }
};

class AccessibleProgress : public QAccessibleWidget {
public:
    explicit AccessibleProgress(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::ProgressBar)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.busy = true;
        return state;
    }
};

/// A push button with or without a menu. Qt's own face for one is tied to the menu of QPushButton.
class AccessibleButton : public QAccessibleWidget {
public:
    explicit AccessibleButton(StyledButton* button) : QAccessibleWidget(button) {}

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
    StyledButton* button() const { return static_cast<StyledButton*>(widget()); }
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

class AccessibleSheet : public QAccessibleWidget {
public:
    explicit AccessibleSheet(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Dialog) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
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

QAccessibleInterface* makePicture(QWidget* widget)
{
    if (widget->accessibleName().isEmpty())
        return new AccessibleDecoration(widget);
    return new QAccessibleWidget(widget, QAccessible::Graphic);
}

QAccessibleInterface* makePart(const QString& className, QObject* object)
{
    if (className == u"QApplication")
        return new AccessibleTrovell;
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !className.startsWith(u"trovell::"))
        return nullptr;
    const QStringView name = QStringView(className).sliced(9);
    if (name == u"Divider" || name == u"TrovellBrandMark" || name == u"Scrim")
        return new AccessibleDecoration(widget);
    if (name == u"SymbolView" || name == u"Picture")
        return makePicture(widget);
    if (name == u"ProgressRing")
        return new AccessibleProgress(widget);
    if (name == u"BannerFrame")
        return new QAccessibleWidget(widget, QAccessible::AlertMessage);
    if (name == u"ChoiceRow" || name == u"TrovellCardModifier" || name == u"Group")
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    if (name == u"ListGroup")
        return new QAccessibleWidget(widget, QAccessible::List);
    if (name == u"ListRow")
        return new QAccessibleWidget(widget, QAccessible::ListItem);
    if (name == u"StyledButton")
        return new AccessibleButton(static_cast<StyledButton*>(widget));
    if (name == u"Picker")
        return new AccessiblePicker(static_cast<Picker*>(widget));
    if (name == u"Sheet")
        return new AccessibleSheet(widget);
    return nullptr;
}

} // namespace

void installAccessibleParts()
{
    QAccessible::installFactory(&makePart);
}

void announce(QWidget& widget, const QString& text)
{
    widget.setAccessibleName(text);
    QAccessibleEvent event(&widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace trovell
