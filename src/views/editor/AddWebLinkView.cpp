// SPDX-License-Identifier: MIT

#include "views/editor/AddWebLinkView.h"

#include "launch/URLValidation.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

#include <QVBoxLayout>

namespace trovell {

namespace {

constexpr int boxWidth = 460;
constexpr int margin = 24;
constexpr int spacing = 16;
constexpr int buttonGap = 10;

} // namespace

AddWebLinkView::AddWebLinkView(const ViewEnvironment& environment, const QString& text,
                               QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment),
      m_field(new TextField(environment.visual, {}))
{
    setBody(makeBody(text));
    setBoxWidth(boxWidth);
    setInitialFocus(m_field);
    connect(m_field, &QLineEdit::textChanged, this, &AddWebLinkView::textChanged);
    m_environment.words.render(this, [this] {
        const QString title = m_environment.words.text(u"Add Web Link"_key);
        setWindowTitle(title);
        setAccessibleName(title);
        m_field->setAccessibleName(title);
        m_field->setPlaceholderText(m_environment.words.text(u"example.com"_key));
    });
}

QWidget* AddWebLinkView::makeBody(const QString& text)
{
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    auto* title = new TextLabel(visual(), {}, TextRole::title2);
    title->setWordWrap(true);
    m_environment.words.renderText(title, u"Add Web Link"_key);
    m_field->setText(text);
    column->addWidget(title);
    column->addWidget(m_field);
    column->addWidget(makeButtons());
    return body;
}

QWidget* AddWebLinkView::makeButtons()
{
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(buttonGap);
    auto* cancelButton = new PushButton(visual(), {});
    auto* addButton = new PushButton(visual(), {}, PushButton::Kind::prominent);
    m_environment.words.renderText(cancelButton, u"Cancel"_key);
    m_environment.words.renderText(addButton, u"Add"_key);
    row->addStretch();
    row->addWidget(cancelButton);
    row->addWidget(addButton);
    connect(cancelButton, &QAbstractButton::clicked, this, &Sheet::cancel);
    connect(addButton, &QAbstractButton::clicked, this, &AddWebLinkView::add);
    setDefaultButton(addButton);
    return buttons;
}

void AddWebLinkView::add()
{
    const auto url = validatedWebURL(m_field->text());
    if (!url) {
        showWorkspaceAlert(m_environment, this, description(url.error()));
        return;
    }
    Q_EMIT added(*url);
    accept();
}

} // namespace trovell
