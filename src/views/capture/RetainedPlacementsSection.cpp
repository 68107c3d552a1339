// SPDX-License-Identifier: MIT

#include "views/capture/RetainedPlacementsSection.h"

#include "views/capture/RetainedPlacementRow.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

namespace trovell {

namespace {

constexpr int retainedCaptionGap = 2;
constexpr int retainedCardGap = 8;

} // namespace

RetainedPlacementsSection::RetainedPlacementsSection(const ViewEnvironment& environment,
                                                     QList<RetainedPlacementDraft>& placements)
    : m_environment(environment), m_placements(placements)
{
    auto* heading = new TextLabel(environment.visual, {}, TextRole::headline);
    environment.words.renderText(heading, u"Not Currently Detected"_key);
    auto* text =
        new TextLabel(environment.visual, {}, TextRole::callout, ColorToken::labelSecondary);
    text->setWordWrap(true);
    environment.words.renderText(
        text,
        u"These applications are closed or their saved windows are not open. Their previous positions are kept by default."_key);
    new ColumnLayout(this, retainedCaptionGap, {heading, text, Gap{retainedCardGap}, makeCard()});
}

QWidget* RetainedPlacementsSection::makeCard()
{
    auto* card = new TrovellCardModifier(m_environment.visual);
    card->setPadding(0);
    m_environment.words.render(card, [&words = m_environment.words, card] {
        card->setAccessibleName(words.text(u"Not Currently Detected"_key));
    });
    auto* column = new ColumnLayout(card, 0);
    for (qsizetype index = 0; index < m_placements.size(); ++index) {
        if (index > 0)
            column->addWidget(new Divider(m_environment.visual));
        auto* row = new RetainedPlacementRow(m_environment, m_placements[index]);
        connect(row, &RetainedPlacementRow::keptChanged, this, [this, index](bool isKept) {
            m_placements[index].isKept = isKept;
            Q_EMIT changed();
        });
        column->addWidget(row);
    }
    return card;
}

} // namespace trovell
