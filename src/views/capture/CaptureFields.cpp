// SPDX-License-Identifier: MIT

#include "views/capture/CaptureFields.h"

#include "editing/CaptureDraft.h"
#include "views/shared/WorkspaceChoiceControls.h"
#include "views/style/ChoiceRow.h"
#include "views/style/Layouts.h"
#include "views/style/Picker.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QGridLayout>

namespace trovell {

namespace {

constexpr int fieldHeadingGap = 10;
constexpr int fieldGap = 28;
constexpr int rowGap = 12;
constexpr int fieldCaptionGap = 26;
constexpr int pickerGap = 12;

} // namespace

CaptureFields::CaptureFields(const ViewEnvironment& environment, CaptureDraft& draft)
    : m_environment(environment)
{
    auto* heading = new TextLabel(environment.visual, {}, TextRole::headline);
    environment.words.renderText(heading, u"Workspace"_key);
    auto* card = new TrovellCardModifier(environment.visual);
    new ColumnLayout(card, fieldGap, {makeName(draft), makeChoices(draft)});
    environment.words.render(card, [&words = environment.words, card] {
        card->setAccessibleName(words.text(u"Workspace"_key));
    });
    new ColumnLayout(this, fieldHeadingGap, {heading, card});
}

QWidget* CaptureFields::makeName(CaptureDraft& draft)
{
    m_name = new TextField(m_environment.visual, {});
    m_name->setText(draft.basics.name);
    const Localization& words = m_environment.words;
    words.render(m_name, [&words, field = m_name] {
        field->setPlaceholderText(words.text(u"Workspace name"_key));
        field->setAccessibleName(words.text(u"Workspace name"_key));
    });
    connect(m_name, &QLineEdit::textChanged, this, [this, &draft](const QString& text) {
        draft.basics.name = text;
        Q_EMIT changed();
    });
    return m_name;
}

QLayout* CaptureFields::makeChoices(CaptureDraft& draft)
{
    auto* controls =
        new WorkspaceChoiceControls(m_environment, draft.basics.choices, u"No Shortcut"_key, this);
    connect(controls, &WorkspaceChoiceControls::choicesChanged, this, [this, &draft, controls] {
        draft.basics.choices = controls->choices();
        Q_EMIT changed();
    });
    auto* accentRow =
        new RowLayout(pickerGap, {controls->accents(), Stretch{}, makeCaption(u"Shortcut"_key),
                                  controls->shortcut()});
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(fieldCaptionGap);
    grid->setVerticalSpacing(rowGap);
    grid->setColumnStretch(1, 1);
    grid->addWidget(makeCaption(u"Icon"_key), 0, 0);
    grid->addWidget(controls->icons(), 0, 1, Qt::AlignLeft);
    grid->addWidget(makeCaption(u"Accent"_key), 1, 0);
    grid->addLayout(accentRow, 1, 1);
    return grid;
}

TextLabel* CaptureFields::makeCaption(TextKey<> key)
{
    auto* caption =
        new TextLabel(m_environment.visual, {}, TextRole::body, ColorToken::labelSecondary);
    caption->setElides(false);
    m_environment.words.renderText(caption, key);
    return caption;
}

} // namespace trovell
