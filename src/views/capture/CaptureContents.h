// SPDX-License-Identifier: MIT
//
// The lists of the capture sheet. Main thread.
#pragma once

#include "editing/CaptureDraft.h"
#include "views/shared/ViewEnvironment.h"

#include <QWidget>

class QVBoxLayout;

namespace trovell {

class TextLabel;
struct CaptureDraft;

/// The workspace's fields, the detected applications and the saved windows that were not detected,
/// bound to the draft.
class CaptureContents : public QWidget {
    Q_OBJECT

public:
    /// `draft` outlives the lists, and its lists keep their order.
    CaptureContents(const ViewEnvironment& environment, CapturePurpose purpose, bool appsOnly,
                    CaptureDraft& draft);

    /// The field for the name; null without one.
    [[nodiscard]] QWidget* nameField() const { return m_nameField; }

Q_SIGNALS:
    /// Something in the draft has been changed.
    void changed();

private:
    void addFields();
    void addAppsOnlyNote();
    void addApplications(CapturePurpose purpose, bool appsOnly);
    QWidget* makeApplicationsHeading();
    QWidget* makeNoApplicationsCard();
    void addRetainedPlacements();
    TextLabel* makeHeading(TextKey<> key);
    void showSelectedCount();

    const ViewEnvironment m_environment;
    CaptureDraft& m_draft;
    QVBoxLayout* m_sections;
    QWidget* m_nameField = nullptr;
    TextLabel* m_selectedCount = nullptr;
};

} // namespace trovell
