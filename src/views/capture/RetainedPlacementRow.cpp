// SPDX-License-Identifier: MIT

#include "views/capture/RetainedPlacementRow.h"

#include "editing/CaptureDraft.h"
#include "views/style/Layouts.h"
#include "views/style/Switch.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int sidePadding = 16;
constexpr int verticalPadding = 11;
constexpr int retainedRowGap = 12;
constexpr int symbolSize = 24;

} // namespace

RetainedPlacementRow::RetainedPlacementRow(const ViewEnvironment& environment,
                                           const RetainedPlacementDraft& placement)
    : m_environment(environment), m_isKept(placement.isKept),
      m_status(new TextLabel(environment.visual, {}, TextRole::callout))
{
    m_status->setElides(false);
    const VisualStyle& visual = environment.visual;
    const Localization& words = environment.words;
    auto* kept = new Switch(visual, {});
    kept->setChecked(placement.isKept);
    connect(kept, &QAbstractButton::toggled, this, [this](bool isKept) {
        m_isKept = isKept;
        showStatus();
        Q_EMIT keptChanged(isKept);
    });
    words.render(this, [this, &words, kept, name = placement.applicationName] {
        kept->setAccessibleName(words.text(phrases::keepSavedPositionFor, name));
        showStatus();
    });
    new RowLayout(this, {sidePadding, verticalPadding, sidePadding, verticalPadding},
                  retainedRowGap,
                  {new SymbolView(visual, u"macwindow.badge.exclamationmark"_s, symbolSize,
                                  ColorToken::labelSecondary),
                   {makeNames(placement), 1},
                   m_status,
                   kept});
}

QWidget* RetainedPlacementRow::makeNames(const RetainedPlacementDraft& placement)
{
    const VisualStyle& visual = m_environment.visual;
    auto* names = new QWidget;
    auto* title = new TextLabel(visual, placement.windowTitle.value_or(placement.applicationName));
    title->setWeight(QFont::Medium);
    auto* detail = new TextLabel(visual, {}, TextRole::caption, ColorToken::labelSecondary);
    const Localization& words = m_environment.words;
    words.render(detail, [&words, detail, name = placement.applicationName] {
        detail->setText(words.text(phrases::notDetected, name));
    });
    new ColumnLayout(names, 0, {title, detail});
    return names;
}

void RetainedPlacementRow::showStatus()
{
    const Localization& words = m_environment.words;
    m_status->setText(m_isKept ? words.text(u"Keep saved position"_key)
                               : words.text(u"Remove position"_key));
    m_status->setColor(m_isKept ? ColorToken::labelSecondary : ColorToken::destructive);
}

} // namespace trovell
