// SPDX-License-Identifier: MIT
//
// How the last start of the workspace shown went. Main thread.
#pragma once

#include "results/WorkspaceLaunchReport.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/BannerFrame.h"

#include <optional>

class QGridLayout;

namespace trovell {

class PushButton;
class SymbolView;
class TextLabel;

class LaunchReportBanner : public BannerFrame {
    Q_OBJECT

public:
    explicit LaunchReportBanner(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// None hides the banner, and its details with it: they are shown for as long as the user
    /// stays with the workspace.
    void setReport(const std::optional<WorkspaceLaunchReport>& report);

    /// Offers to take back where windows were brought.
    void setCanPutBack(bool canPutBack);

    /// Tells assistive tools of the report, which has just come in.
    void announceReport();

Q_SIGNALS:
    void putBackRequested();

private:
    QWidget* buildSummary();
    QWidget* buildDetails();
    void showReport();
    void showDetails();
    void addDetail(const LaunchResult& result);
    void setExpanded(bool isExpanded);
    [[nodiscard]] bool hasDetails() const;
    [[nodiscard]] QString titleText() const;

    ViewEnvironment m_environment;
    WorkspaceLaunchReport m_report;
    bool m_isExpanded = false;

    SymbolView* m_symbol;
    TextLabel* m_title;
    TextLabel* m_summary;
    PushButton* m_putBack;
    PushButton* m_disclosure;
    QGridLayout* m_rows;
    /// The rule and the rows.
    QWidget* m_details;
};

} // namespace trovell
