// SPDX-License-Identifier: MIT

#include "views/capture/CapturedApplicationCard.h"

#include "views/capture/CapturedWindowRow.h"
#include "views/style/Divider.h"
#include "views/style/ForwardedClicks.h"
#include "views/style/Layouts.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

#include <QCheckBox>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int cardPadding = 16;
constexpr int headingMargin = 12;
constexpr int gap = 12;
// Puts the check boxes of windows below the name of their application.
constexpr int windowIndent = 46;
constexpr QSize miniatureSize(72, 44);
constexpr int markSymbolSize = 16;
constexpr int markGap = 6;

} // namespace

CapturedApplicationCard::CapturedApplicationCard(const ViewEnvironment& environment,
                                                 CapturePurpose purpose, bool appsOnly,
                                                 QList<CapturedApplication>& applications,
                                                 qsizetype index)
    : TrovellCardModifier(environment.visual), m_environment(environment),
      m_applications(applications), m_index(index)
{
    setPadding(0);
    setAccessibleName(application().applicationName);
    auto* column = new ColumnLayout(this, 0, {makeHeading(purpose, appsOnly)});
    for (qsizetype window = 0; window < application().windows.size(); ++window) {
        column->addWidget(new Divider(environment.visual));
        column->addWidget(makeWindowRow(window));
    }
}

QWidget* CapturedApplicationCard::makeHeading(CapturePurpose purpose, bool appsOnly)
{
    auto* heading = new QWidget;
    auto* included = new QCheckBox;
    included->setAccessibleName(application().applicationName);
    included->setChecked(application().isIncluded);
    connect(included, &QAbstractButton::toggled, this, [this](bool isOn) {
        application().isIncluded = isOn;
        Q_EMIT changed();
    });
    QWidget* names = makeNames(appsOnly);
    forwardClicks(*names, *included);
    new RowLayout(
        heading, {cardPadding, headingMargin, cardPadding, headingMargin}, gap,
        {included,
         {names, 1},
         purpose == CapturePurpose::update ? makeLaunchItemMark() : makeLaunchItemChoice()});
    return heading;
}

QWidget* CapturedApplicationCard::makeNames(bool appsOnly)
{
    const VisualStyle& visual = m_environment.visual;
    auto* names = new QWidget;
    auto* name = new TextLabel(visual, application().applicationName, TextRole::headline);
    auto* detail = new TextLabel(visual, {}, TextRole::caption, ColorToken::labelSecondary);
    new ColumnLayout(names, 0, {name, detail});
    const Localization& words = m_environment.words;
    const qint64 windowCount = application().windows.size();
    words.render(this, [&words, detail, appsOnly, windowCount] {
        detail->setText(appsOnly ? words.text(u"Application launch item"_key)
                                 : words.text(phrases::ordinaryWindowsDetected, windowCount));
    });
    return names;
}

QWidget* CapturedApplicationCard::makeLaunchItemChoice()
{
    auto* choice = new QCheckBox;
    m_environment.words.renderText(choice, u"Add as launch item"_key);
    choice->setChecked(application().addAsLaunchItem);
    connect(choice, &QAbstractButton::toggled, this, [this](bool isOn) {
        application().addAsLaunchItem = isOn;
        Q_EMIT changed();
    });
    return choice;
}

QWidget* CapturedApplicationCard::makeLaunchItemMark()
{
    const VisualStyle& visual = m_environment.visual;
    auto* mark = new QWidget;
    auto* text = new TextLabel(visual, {}, TextRole::callout, ColorToken::labelSecondary);
    text->setElides(false);
    m_environment.words.renderText(text, u"Launch item saved"_key);
    new RowLayout(
        mark, markGap,
        {new SymbolView(visual, u"checkmark.circle"_s, markSymbolSize, ColorToken::labelSecondary),
         text});
    return mark;
}

QWidget* CapturedApplicationCard::makeWindowRow(qsizetype window)
{
    auto* included = new QCheckBox;
    included->setChecked(application().windows[window].isIncluded);
    connect(included, &QAbstractButton::toggled, this, [this, window](bool isOn) {
        application().windows[window].isIncluded = isOn;
        Q_EMIT changed();
    });
    return new CapturedWindowRow(m_environment, application().windows[window], included,
                                 {.leadingMargin = windowIndent, .miniature = miniatureSize});
}

} // namespace trovell
