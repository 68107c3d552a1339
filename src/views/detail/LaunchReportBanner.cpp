// SPDX-License-Identifier: MIT

#include "views/detail/LaunchReportBanner.h"

#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

#include <QGridLayout>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 12;
constexpr int nameWidth = 150;
/// Without one of its own, a text that nothing can break would widen the whole view.
constexpr int narrowestDetail = 48;

bool hasDetail(const LaunchResult& result)
{
    return !result.detail.isEmpty();
}

bool isAllRight(const WorkspaceLaunchReport& report)
{
    return report.unresolvedCount() == 0 && report.skippedCount() == 0;
}

} // namespace

LaunchReportBanner::LaunchReportBanner(const ViewEnvironment& environment, QWidget* parent)
    : BannerFrame(environment.visual, Kind::success, parent), m_environment(environment),
      m_symbol(new SymbolView(environment.visual, {}, 24)),
      m_title(new TextLabel(environment.visual, {}, TextRole::headline)),
      m_summary(
          new TextLabel(environment.visual, {}, TextRole::callout, ColorToken::labelSecondary)),
      m_putBack(new PushButton(environment.visual, {}, PushButton::Kind::bordered,
                               PushButton::Scale::small)),
      m_disclosure(new PushButton(environment.visual, {}, PushButton::Kind::bordered,
                                  PushButton::Scale::small)),
      m_rows(new QGridLayout)
{
    setVisible(false);
    m_putBack->setVisible(false);
    new ColumnLayout(this, {17, 15, 17, 15}, 0, {buildSummary(), m_details = buildDetails()});

    connect(m_putBack, &QAbstractButton::clicked, this, &LaunchReportBanner::putBackRequested);
    connect(m_disclosure, &QAbstractButton::clicked, this, [this] { setExpanded(!m_isExpanded); });
    connect(&environment.visual, &VisualStyle::metricsChanged, this,
            &LaunchReportBanner::showDetails);
    environment.words.render(this, [this] { showReport(); });
}

QWidget* LaunchReportBanner::buildSummary()
{
    m_title->setWordWrap(true);
    m_summary->setWordWrap(true);
    auto* texts = new ColumnLayout(0, {m_title, m_summary});

    auto* summary = new QWidget;
    new RowLayout(summary, gap, {m_symbol, {texts, 1}, m_putBack, m_disclosure});
    return summary;
}

QWidget* LaunchReportBanner::buildDetails()
{
    auto* details = new QWidget;
    new ColumnLayout(details, {0, gap, 0, 0}, 10, {new Divider(m_environment.visual), m_rows});
    m_rows->setHorizontalSpacing(gap);
    m_rows->setVerticalSpacing(7);
    m_rows->setColumnStretch(1, 1);
    return details;
}

void LaunchReportBanner::setReport(const std::optional<WorkspaceLaunchReport>& report)
{
    if (!report) {
        m_isExpanded = false;
        setVisible(false);
        return;
    }
    if (*report != m_report || isHidden()) {
        m_report = *report;
        showReport();
    }
    setVisible(true);
}

void LaunchReportBanner::setCanPutBack(bool canPutBack)
{
    m_putBack->setVisible(canPutBack);
}

void LaunchReportBanner::announceReport()
{
    announce(m_title->text() + u' ' + m_summary->text());
}

void LaunchReportBanner::showReport()
{
    const bool isGood = isAllRight(m_report);
    setKind(isGood ? Kind::success : Kind::warning);
    m_symbol->setSymbol(isGood ? u"checkmark.circle.fill"_s : u"exclamationmark.circle.fill"_s);
    m_symbol->setColor(isGood ? ColorToken::successIcon : ColorToken::warningIcon);

    m_title->setText(titleText());
    m_summary->setText(m_environment.words.text(m_report.summary()));
    setAccessibleName(m_title->text());
    m_putBack->setText(m_environment.words.text(u"Put Windows Back"_key));
    setExpanded(m_isExpanded);
}

void LaunchReportBanner::setExpanded(bool isExpanded)
{
    const Localization& words = m_environment.words;
    m_isExpanded = isExpanded && hasDetails();
    m_disclosure->setVisible(hasDetails());
    m_disclosure->setDisclosed(m_isExpanded);
    m_disclosure->setText(words.text(m_isExpanded ? u"Hide Details"_key : u"Show Details"_key));
    showDetails();
}

void LaunchReportBanner::showDetails()
{
    while (QLayoutItem* const item = m_rows->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    m_details->setVisible(m_isExpanded);
    if (!m_isExpanded)
        return;
    for (const LaunchResult& result : std::as_const(m_report.results)) {
        if (hasDetail(result))
            addDetail(result);
    }
}

void LaunchReportBanner::addDetail(const LaunchResult& result)
{
    const VisualStyle& visual = m_environment.visual;
    const Localization& words = m_environment.words;
    auto* name = new TextLabel(visual, words.text(result.name), TextRole::caption);
    name->setWeight(QFont::Medium);
    name->setWordWrap(true);
    name->setFixedWidth(visual.scaled(nameWidth));
    QStringList sentences{words.text(result.detail)};
    if (!result.advice.isEmpty())
        sentences.append(words.text(result.advice));
    auto* detail = new SelectableLabel(visual, sentences.join(u' '));
    detail->setMinimumWidth(narrowestDetail);
    const int row = m_rows->rowCount();
    m_rows->addWidget(name, row, 0, Qt::AlignTop);
    m_rows->addWidget(detail, row, 1, Qt::AlignTop);
}

bool LaunchReportBanner::hasDetails() const
{
    return std::ranges::any_of(m_report.results, &hasDetail);
}

QString LaunchReportBanner::titleText() const
{
    const Localization& words = m_environment.words;
    if (m_report.results.isEmpty())
        return words.text(u"Nothing to start"_key);
    return words.text(isAllRight(m_report) ? u"Workspace ready"_key
                                           : u"Workspace started with skipped items"_key);
}

} // namespace trovell
