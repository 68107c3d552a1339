// SPDX-License-Identifier: MIT

#include "views/capture/CaptureContents.h"

#include "views/capture/CapturedApplicationCard.h"
#include "views/capture/CaptureFields.h"
#include "views/capture/RetainedPlacementsSection.h"
#include "views/shared/GradualColumn.h"
#include "views/style/Layouts.h"
#include "views/style/SymbolView.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 24;
constexpr int sectionGap = 24;
constexpr int headingGap = 10;
constexpr int notePadding = 11;
constexpr int noteSymbolSize = 18;
constexpr int noteGap = 10;
constexpr int emptySymbolSize = 32;
constexpr int emptyMargin = 26;
constexpr int emptySymbolGap = 10;

} // namespace

CaptureContents::CaptureContents(const ViewEnvironment& environment, CapturePurpose purpose,
                                 bool appsOnly, CaptureDraft& draft)
    : m_environment(environment), m_draft(draft),
      m_sections(new ColumnLayout(this, allAround(padding), sectionGap))
{
    if (purpose != CapturePurpose::update)
        addFields();
    if (appsOnly)
        addAppsOnlyNote();
    addApplications(purpose, appsOnly);
    if (!draft.retainedPlacements.isEmpty())
        addRetainedPlacements();
    m_sections->addStretch();
    connect(this, &CaptureContents::changed, this, &CaptureContents::showSelectedCount);
}

void CaptureContents::addFields()
{
    auto* fields = new CaptureFields(m_environment, m_draft);
    connect(fields, &CaptureFields::changed, this, &CaptureContents::changed);
    m_nameField = fields->name();
    m_sections->addWidget(fields);
}

void CaptureContents::addAppsOnlyNote()
{
    const VisualStyle& visual = m_environment.visual;
    auto* card = new TrovellCardModifier(visual);
    card->setContentsMargins(2 + notePadding, notePadding, 2 + notePadding, notePadding);
    auto* text = new TextLabel(visual, {}, TextRole::caption, ColorToken::labelSecondary);
    text->setWordWrap(true);
    m_environment.words.renderText(
        text,
        u"Only application launch items will be saved. Grant Accessibility access later, arrange the windows, then use Save Layout."_key);
    new RowLayout(card, noteGap,
                  {new SymbolView(visual, u"info.circle"_s, noteSymbolSize), {text, 1}});
    m_sections->addWidget(card);
}

void CaptureContents::addApplications(CapturePurpose purpose, bool appsOnly)
{
    auto* section = new QWidget;
    auto* column = new ColumnLayout(section, headingGap);
    column->addWidget(makeApplicationsHeading());
    m_sections->addWidget(section);
    if (m_draft.applications.isEmpty()) {
        column->addWidget(makeNoApplicationsCard());
        return;
    }
    const auto makeCard = [this, purpose, appsOnly](qsizetype index) {
        auto* card = new CapturedApplicationCard(m_environment, purpose, appsOnly,
                                                 m_draft.applications, index);
        connect(card, &CapturedApplicationCard::changed, this, &CaptureContents::changed);
        return card;
    };
    column->addWidget(new GradualColumn(m_draft.applications.size(), makeCard));
}

QWidget* CaptureContents::makeApplicationsHeading()
{
    auto* heading = new QWidget;
    m_selectedCount =
        new TextLabel(m_environment.visual, {}, TextRole::callout, ColorToken::labelSecondary);
    m_selectedCount->setElides(false);
    m_environment.words.render(m_selectedCount, [this] { showSelectedCount(); });
    new RowLayout(heading, 6, {{makeHeading(u"Detected Applications"_key), 1}, m_selectedCount});
    return heading;
}

QWidget* CaptureContents::makeNoApplicationsCard()
{
    const VisualStyle& visual = m_environment.visual;
    auto* card = new TrovellCardModifier(visual);
    auto* column =
        new ColumnLayout(card, {0, emptyMargin - padding / 2, 0, emptyMargin - padding / 2}, 0,
                         {{new SymbolView(visual, u"macwindow.on.rectangle"_s, emptySymbolSize,
                                          ColorToken::labelSecondary),
                           0, Qt::AlignHCenter},
                          Gap{emptySymbolGap}});
    TextLabel* title = makeHeading(u"No workspace application windows are open"_key);
    auto* text = new TextLabel(visual, {}, TextRole::callout, ColorToken::labelSecondary);
    m_environment.words.renderText(
        text, u"Existing positions listed below will remain saved unless you remove them."_key);
    for (TextLabel* label : {title, text}) {
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    return card;
}

void CaptureContents::addRetainedPlacements()
{
    auto* section = new RetainedPlacementsSection(m_environment, m_draft.retainedPlacements);
    connect(section, &RetainedPlacementsSection::changed, this, &CaptureContents::changed);
    m_sections->addWidget(section);
}

TextLabel* CaptureContents::makeHeading(TextKey<> key)
{
    auto* heading = new TextLabel(m_environment.visual, {}, TextRole::headline);
    m_environment.words.renderText(heading, key);
    return heading;
}

void CaptureContents::showSelectedCount()
{
    m_selectedCount->setText(m_environment.words.text(
        phrases::selectedCount,
        std::ranges::count_if(m_draft.applications, &CapturedApplication::isIncluded)));
}

} // namespace trovell
