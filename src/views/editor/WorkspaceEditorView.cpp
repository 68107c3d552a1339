// SPDX-License-Identifier: MIT

#include "views/editor/WorkspaceEditorView.h"

#include "model/StoreContext.h"
#include "model/TrovellWorkspace.h"
#include "views/editor/EditorItemsSection.h"
#include "views/editor/EditorLayoutSection.h"
#include "views/shared/SheetParts.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/shared/WorkspaceChoiceControls.h"
#include "views/style/ChoiceRow.h"
#include "views/style/Layouts.h"
#include "views/style/Picker.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QGridLayout>

namespace trovell {

namespace {

constexpr QSize editorBoxSize(760, 700);
constexpr int editorPadding = 24;
constexpr int headerPadding = 18;
constexpr int editorButtonGap = 10;
constexpr int sectionGap = 24;
constexpr int headingGap = 10;
constexpr int controlGap = 12;
constexpr int choicesGap = 24; ///< between the name and the rows of choices
constexpr int labelGap = 32;
constexpr int editorCaptionGap = 16;

/// A heading with a card below it that holds `content`.
QWidget* makeSection(const ViewEnvironment& environment, TextKey<> heading, QWidget* content)
{
    auto* section = new QWidget;
    auto* label = new TextLabel(environment.visual, {}, TextRole::headline);
    environment.words.renderText(label, heading);
    auto* card = new TrovellCardModifier(environment.visual);
    new ColumnLayout(card, 0, {content});
    new ColumnLayout(section, headingGap, {label, card});
    return section;
}

TextLabel* makeRowLabel(const ViewEnvironment& environment, TextKey<> key)
{
    auto* label = new TextLabel(environment.visual, {}, TextRole::body, ColorToken::labelSecondary);
    label->setElides(false);
    environment.words.renderText(label, key);
    return label;
}

} // namespace

WorkspaceEditorView::WorkspaceEditorView(const EditingEnvironment& environment,
                                         TrovellWorkspace* workspaceOrNull, QWidget* window,
                                         OpenPanel openPanel)
    : Sheet(environment.visual, window, {}), m_environment(environment), m_target(workspaceOrNull),
      m_save(new PushButton(environment.visual, {}, PushButton::Kind::prominent)),
      m_name(new TextField(environment.visual, {})),
      m_choices(new WorkspaceChoiceControls(environment, m_target.edits.basics.choices, u"None"_key,
                                            this)),
      m_items(new EditorItemsSection(environment, m_target.edits.items,
                                     openPanel ? openPanel : desktopOpenPanel(environment))),
      m_layout(new EditorLayoutSection(environment, workspaceOrNull, m_target.edits.placements))
{
    setHeader(makeHeader());
    setBody(makeBody());
    setBoxSize(editorBoxSize);
    setInitialFocus(m_name);
    setDefaultButton(m_save);
    connect(m_name, &QLineEdit::textChanged, this, &WorkspaceEditorView::showSaveState);
    connect(m_save, &QAbstractButton::clicked, this, &WorkspaceEditorView::save);
    connect(m_layout, &EditorLayoutSection::failed, this, &WorkspaceEditorView::showError);
    connect(m_items, &EditorItemsSection::addingFinished, this, [this] {
        if (std::exchange(m_savesAfterAdding, false))
            save();
    });
    m_name->setText(m_target.edits.basics.name);
    showSaveState();
    environment.words.render(this, [this] { showTitle(); });
}

WorkspaceEditorView::~WorkspaceEditorView() = default;

QWidget* WorkspaceEditorView::makeHeader()
{
    auto* header = new QWidget;
    auto* title = new TextLabel(visual(), {}, TextRole::title2);
    connect(this, &QWidget::windowTitleChanged, title, &QLabel::setText);
    m_environment.words.renderText(m_save, u"Save"_key);
    new RowLayout(header, {editorPadding, headerPadding, editorPadding, headerPadding},
                  editorButtonGap, {{title, 1}, makeCancelButton(m_environment, *this), m_save});
    return header;
}

QWidget* WorkspaceEditorView::makeBody()
{
    auto* body = new QWidget;
    new ColumnLayout(body, allAround(editorPadding), sectionGap,
                     {makeSection(m_environment, u"Basics"_key, makeBasics()), m_items,
                      makeSection(m_environment, u"Window Layout"_key, m_layout),
                      makeSection(m_environment, u"Global Shortcut"_key, makeShortcut()),
                      Stretch{}});
    return body;
}

QWidget* WorkspaceEditorView::makeBasics()
{
    auto* basics = new QWidget;
    auto* grid = new QGridLayout(basics);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(labelGap);
    grid->setVerticalSpacing(controlGap);
    grid->setColumnStretch(2, 1);
    grid->addWidget(m_name, 0, 0, 1, 3);
    grid->setRowMinimumHeight(1, choicesGap - controlGap);
    grid->addWidget(makeRowLabel(m_environment, u"Icon"_key), 2, 0);
    grid->addWidget(m_choices->icons(), 2, 1);
    grid->addWidget(makeRowLabel(m_environment, u"Accent"_key), 3, 0);
    grid->addWidget(m_choices->accents(), 3, 1);
    return basics;
}

QWidget* WorkspaceEditorView::makeShortcut()
{
    auto* shortcut = new QWidget;
    auto* caption = new TextLabel(visual(), {}, TextRole::caption, ColorToken::labelSecondary);
    caption->setWordWrap(true);
    m_environment.words.renderText(caption, phrases::shortcutCaption);
    new RowLayout(shortcut, editorCaptionGap, {m_choices->shortcut(), {caption, 1}});
    return shortcut;
}

void WorkspaceEditorView::showTitle()
{
    const Localization& words = m_environment.words;
    setTitle(*this,
             m_target.isNew ? words.text(u"New Workspace"_key) : words.text(u"Edit Workspace"_key));
    m_name->setPlaceholderText(words.text(u"Workspace name"_key));
    m_name->setAccessibleName(words.text(u"Workspace name"_key));
}

void WorkspaceEditorView::showSaveState()
{
    m_save->setEnabled(!m_name->text().trimmed().isEmpty());
}

/// What was chosen a moment ago is still being looked at: it is saved too.
void WorkspaceEditorView::save()
{
    m_savesAfterAdding = m_items->isAdding();
    if (m_savesAfterAdding)
        return;
    const auto workspace = saveEdits(m_target, edits(), m_environment.context);
    if (!workspace) {
        showError(description(workspace.error()));
        return;
    }
    Q_EMIT saved(*workspace);
    accept();
}

WorkspaceEdits WorkspaceEditorView::edits() const
{
    return {.basics = {m_name->text(), m_choices->choices()},
            .items = m_items->items(),
            .placements = m_layout->placements(),
            .layoutChange = m_layout->layoutChange(),
            .capturedApplications = m_layout->capturedApplications(),
            .retainedPlacements = m_layout->retainedPlacements()};
}

void WorkspaceEditorView::showError(const Message& reason)
{
    showWorkspaceAlert(m_environment, this, reason);
}

} // namespace trovell
