// SPDX-License-Identifier: MIT

#include "views/shared/TextSheet.h"

#include "views/shared/SheetParts.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

namespace trovell {

namespace {

constexpr int margin = 24;
constexpr int buttonGap = 10;

} // namespace

TextSheet::TextSheet(const ViewEnvironment& environment, const Look& look, const Texts& texts,
                     const QString& text, QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment),
      m_field(new TextField(environment.visual, {})),
      m_confirm(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    m_field->setText(text);
    setBody(makeForm(look, texts));
    setBoxWidth(look.width);
    setInitialFocus(m_field);
    setDefaultButton(m_confirm);
    connect(m_confirm, &QAbstractButton::clicked, this, [this] { confirm(); });
    environment.words.render(this, [this, texts] {
        const Localization& words = m_environment.words;
        setTitle(*this, words.text(texts.title));
        m_field->setPlaceholderText(words.text(texts.hint));
        m_field->setAccessibleName(words.text(texts.fieldName));
        m_confirm->setText(words.text(texts.confirm));
    });
}

QWidget* TextSheet::makeForm(const Look& look, const Texts& texts)
{
    auto* title = new TextLabel(m_environment.visual, {}, look.titleRole);
    title->setWordWrap(true);
    m_environment.words.renderText(title, texts.title);
    auto* buttons =
        new RowLayout(buttonGap, {Stretch{}, makeCancelButton(m_environment, *this), m_confirm});
    auto* form = new QWidget;
    new ColumnLayout(form, allAround(margin), look.spacing, {title, m_field, buttons});
    return form;
}

} // namespace trovell
