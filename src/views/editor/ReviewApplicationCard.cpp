// SPDX-License-Identifier: MIT

#include "views/editor/ReviewApplicationCard.h"

#include "views/capture/CapturedApplicationIcon.h"
#include "views/capture/CapturedWindowRow.h"
#include "views/style/Divider.h"
#include "views/style/ForwardedClicks.h"
#include "views/style/Layouts.h"
#include "views/style/Switch.h"
#include "views/style/TextLabel.h"

#include <QGraphicsOpacityEffect>

namespace trovell {

namespace {

constexpr int cardPadding = 16;
constexpr int headingHeight = 48;
constexpr int reviewCardGap = 12;
constexpr int windowGap = 14;
constexpr QSize miniatureSize(70, 44);
constexpr double faintOpacity = 0.55;

} // namespace

ReviewApplicationCard::ReviewApplicationCard(const ViewEnvironment& environment,
                                             QList<CapturedApplication>& applications,
                                             qsizetype index)
    : TrovellCardModifier(environment.visual), m_environment(environment),
      m_applications(applications), m_index(index), m_windows(makeWindows())
{
    setPadding(0);
    setAccessibleName(application().applicationName);
    new ColumnLayout(this, 0, {makeHeading(), m_windows});
    fadeWindows();
}

QWidget* ReviewApplicationCard::makeHeading()
{
    const VisualStyle& visual = m_environment.visual;
    auto* heading = new QWidget;
    heading->setMinimumHeight(headingHeight);
    auto* name = new TextLabel(visual, application().applicationName, TextRole::headline);
    auto* included = new Switch(visual, {});
    included->setAccessibleName(application().applicationName);
    included->setChecked(application().isIncluded);
    forwardClicks(*name, *included);
    connect(included, &QAbstractButton::toggled, this, [this](bool isOn) {
        application().isIncluded = isOn;
        fadeWindows();
        Q_EMIT changed();
    });
    new RowLayout(heading, {cardPadding, 0, cardPadding, 0}, reviewCardGap,
                  {new CapturedApplicationIcon(m_environment, application()), {name, 1}, included});
    return heading;
}

QWidget* ReviewApplicationCard::makeWindows()
{
    auto* windows = new QWidget;
    auto* column = new ColumnLayout(windows, 0);
    for (qsizetype window = 0; window < application().windows.size(); ++window) {
        column->addWidget(new Divider(m_environment.visual));
        column->addWidget(makeWindowRow(window));
    }
    return windows;
}

QWidget* ReviewApplicationCard::makeWindowRow(qsizetype window)
{
    auto* included = new Switch(m_environment.visual, {});
    included->setChecked(application().windows[window].isIncluded);
    connect(included, &QAbstractButton::toggled, this, [this, window](bool isOn) {
        application().windows[window].isIncluded = isOn;
        Q_EMIT changed();
    });
    return new CapturedWindowRow(m_environment, application().windows[window], included,
                                 {.leadingMargin = cardPadding,
                                  .miniature = miniatureSize,
                                  .gap = windowGap,
                                  .role = TextRole::caption,
                                  .color = ColorToken::labelSecondary});
}

void ReviewApplicationCard::fadeWindows()
{
    if (application().isIncluded) {
        m_windows->setGraphicsEffect(nullptr);
        return;
    }
    auto* faint = new QGraphicsOpacityEffect;
    faint->setOpacity(faintOpacity);
    m_windows->setGraphicsEffect(faint);
}

} // namespace trovell
