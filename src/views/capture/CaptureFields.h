// SPDX-License-Identifier: MIT
//
// The name, look and key of a workspace that is captured. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class TextField;
class TextLabel;
struct CaptureDraft;

/// Writes what is typed and chosen into the draft.
class CaptureFields : public QWidget {
    Q_OBJECT

public:
    /// `draft` outlives the fields.
    CaptureFields(const ViewEnvironment& environment, CaptureDraft& draft);

    [[nodiscard]] TextField* name() const { return m_name; }

Q_SIGNALS:
    void changed();

private:
    QWidget* makeName(CaptureDraft& draft);
    QLayout* makeChoices(CaptureDraft& draft);
    TextLabel* makeCaption(TextKey<> key);

    const ViewEnvironment m_environment;
    TextField* m_name = nullptr;
};

} // namespace trovell
