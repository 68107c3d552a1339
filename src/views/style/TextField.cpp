#include "views/style/TextField.h"

#include "views/style/VisualStyle.h"

namespace trovell {

namespace {

constexpr int usualWidth = 200;
constexpr int narrowestWidth = 80;

} // namespace

TextField::TextField(const VisualStyle& visual, const QString& name, const QString& placeholder,
                     QWidget* parent)
    : QLineEdit(parent), m_visual(visual)
{
    setAccessibleName(name);
    setPlaceholderText(placeholder);
}

QSize TextField::sizeHint() const
{
    return {m_visual.scaled(usualWidth), m_visual.scaled(Tokens::Size::fieldHeight)};
}

QSize TextField::minimumSizeHint() const
{
    return {m_visual.scaled(narrowestWidth), sizeHint().height()};
}

} // namespace trovell
