// SPDX-License-Identifier: MIT
//
// One captured application of the capture review. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/style/TrovellCardModifier.h"
#include "windows/CapturedApplication.h"

namespace trovell {

/// The switches of an application and of its windows, bound to their flags. Windows of an
/// application that is off are drawn faintly and can still be switched.
class ReviewApplicationCard : public TrovellCardModifier {
    Q_OBJECT

public:
    /// Writes to `applications[index]`; the list outlives the card and keeps its order.
    ReviewApplicationCard(const ViewEnvironment& environment,
                          QList<CapturedApplication>& applications, qsizetype index);

Q_SIGNALS:
    /// A flag has been changed.
    void changed();

private:
    [[nodiscard]] CapturedApplication& application() { return m_applications[m_index]; }
    QWidget* makeHeading();
    QWidget* makeWindows();
    QWidget* makeWindowRow(qsizetype window);
    void fadeWindows();

    const ViewEnvironment m_environment;
    QList<CapturedApplication>& m_applications;
    qsizetype m_index;
    QWidget* m_windows;
};

} // namespace trovell
