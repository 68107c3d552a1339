// SPDX-License-Identifier: MIT
//
// One detected application of the capture sheet. Main thread.
#pragma once

#include "editing/CaptureDraft.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/TrovellCardModifier.h"
#include "windows/CapturedApplication.h"

namespace trovell {

/// The check boxes of an application and of its windows, bound to their flags.
class CapturedApplicationCard : public TrovellCardModifier {
    Q_OBJECT

public:
    /// Writes to `applications[index]`; the list outlives the card and keeps its order.
    /// `appsOnly`: the applications were listed without their windows.
    CapturedApplicationCard(const ViewEnvironment& environment, CapturePurpose purpose,
                            bool appsOnly, QList<CapturedApplication>& applications,
                            qsizetype index);

Q_SIGNALS:
    /// A flag has been changed.
    void changed();

private:
    [[nodiscard]] CapturedApplication& application() { return m_applications[m_index]; }
    QWidget* makeHeading(CapturePurpose purpose, bool appsOnly);
    QWidget* makeNames(bool appsOnly);
    QWidget* makeLaunchItemChoice();
    QWidget* makeLaunchItemMark();
    QWidget* makeWindowRow(qsizetype window);

    const ViewEnvironment m_environment;
    QList<CapturedApplication>& m_applications;
    qsizetype m_index;
};

} // namespace trovell
