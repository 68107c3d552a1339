#include "views/style/Accessibility.h"

#include <QAccessibleWidget>

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

QAccessibleInterface* makePicture(QWidget* widget)
{
    if (widget->accessibleName().isEmpty())
        return new AccessibleDecoration(widget);
    return new QAccessibleWidget(widget, QAccessible::Graphic);
}

QAccessibleInterface* makePart(const QString& className, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !className.startsWith(u"trovell::"))
        return nullptr;
    const QStringView name = QStringView(className).sliced(9);
    if (name == u"Divider" || name == u"TrovellBrandMark" || name == u"Scrim")
        return new AccessibleDecoration(widget);
    if (name == u"SymbolView")
        return makePicture(widget);
    if (name == u"ProgressRing")
        return new AccessibleProgress(widget);
    if (name == u"BannerFrame")
        return new QAccessibleWidget(widget, QAccessible::AlertMessage);
    if (name == u"ChoiceRow" || name == u"TrovellCardModifier")
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    return nullptr;
}

} // namespace

void installAccessibleParts()
{
    QAccessible::installFactory(&makePart);
}

} // namespace trovell
