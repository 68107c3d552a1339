// SPDX-License-Identifier: MIT

#include "views/style/Alert.h"

#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"

namespace trovell {

namespace {

constexpr int alertWidth = 420;
constexpr int titleGap = 8;
constexpr int buttonRowGap = 20;
constexpr int buttonGap = 10;

PushButton::Kind buttonKind(Alert::Role role)
{
    switch (role) {
    case Alert::Role::confirm:
        return PushButton::Kind::prominent;
    case Alert::Role::destructive:
        return PushButton::Kind::destructive;
    case Alert::Role::cancel:
        break;
    }
    return PushButton::Kind::bordered;
}

} // namespace

Alert::Alert(const VisualStyle& visual, QWidget* window, const QString& title,
             const QString& message)
    : Sheet(visual, window, title), m_heading(new TextLabel(visual, {}, TextRole::title3)),
      m_message(new TextLabel(visual, {}, TextRole::body, ColorToken::labelSecondary)),
      m_buttonRow(new RowLayout(buttonGap, {Stretch{}}))
{
    auto* body = new QWidget;
    const int padding = visual.tokens().size(Tokens::Size::sheetPadding);
    m_heading->setWeight(QFont::DemiBold);
    m_heading->setWordWrap(true);
    m_message->setWordWrap(true);
    new ColumnLayout(body, allAround(padding), 0,
                     {m_heading, Gap{titleGap}, m_message, Gap{buttonRowGap}, m_buttonRow});
    setBody(body);
    setTexts(title, message);
}

void Alert::setTexts(const QString& title, const QString& message)
{
    setWindowTitle(title);
    setAccessibleName(title);
    setAccessibleDescription(message);
    m_heading->setText(title);
    m_message->setText(message);
}

PushButton* Alert::addButton(const QString& text, Role role)
{
    auto* button = new PushButton(visual(), text, buttonKind(role));
    m_buttonRow->addWidget(button);
    m_buttons.append({role, button});
    connect(button, &QAbstractButton::clicked, this, [this, role] { choose(role); });
    return button;
}

void Alert::open()
{
    setDefaultButton(safeDefault());
    setBoxWidth(alertWidth);
    Sheet::open();
}

void Alert::cancel()
{
    choose(Role::cancel);
}

void Alert::choose(Role role)
{
    done(role == Role::cancel ? QDialog::Rejected : QDialog::Accepted);
    Q_EMIT
    chosen(role);
}

PushButton* Alert::safeDefault() const
{
    const auto find = [&](Role role) -> PushButton* {
        for (const auto& [buttonRole, button] : m_buttons)
            if (buttonRole == role)
                return button;
        return nullptr;
    };
    PushButton* confirm = find(Role::confirm);
    return confirm && !find(Role::destructive) ? confirm : find(Role::cancel);
}

} // namespace trovell
