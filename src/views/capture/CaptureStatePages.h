// SPDX-License-Identifier: MIT
//
// What the capture sheet shows while there is no list: a picture, a text and buttons in the middle.
// Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QWidget>

class QAbstractButton;
class QVBoxLayout;

namespace trovell {

class AccessibilityPermissionManager;
class TextLabel;

class CaptureStatePage : public QWidget {
    Q_OBJECT

public:
    /// What Return presses; null without buttons.
    [[nodiscard]] QAbstractButton* defaultButton() const { return m_defaultButton; }

protected:
    explicit CaptureStatePage(const ViewEnvironment& environment);

    [[nodiscard]] const ViewEnvironment& environment() const { return m_environment; }
    /// Widgets in one line below what is there, `gap` logical pixels away.
    void addLine(int gap, const QList<QWidget*>& widgets, int spacing = 0);
    TextLabel* addTitle(int gap);
    /// Wraps at about 460 logical pixels.
    TextLabel* addText(int gap);
    void setDefaultButton(QAbstractButton* button) { m_defaultButton = button; }

private:
    const ViewEnvironment m_environment;
    QVBoxLayout* m_column;
    QAbstractButton* m_defaultButton = nullptr;
};

class CaptureProgressPage : public CaptureStatePage {
    Q_OBJECT

public:
    explicit CaptureProgressPage(const ViewEnvironment& environment);
};

/// Asks for window control.
class CapturePermissionPage : public CaptureStatePage {
    Q_OBJECT

public:
    /// `offersAppsOnly`: the user may go on without.
    CapturePermissionPage(const ViewEnvironment& environment,
                          AccessibilityPermissionManager& accessibility, bool offersAppsOnly);

Q_SIGNALS:
    void continueWithAppsOnly();

private:
    void addButtons(AccessibilityPermissionManager& accessibility);
    void addNote();
};

class CaptureFailurePage : public CaptureStatePage {
    Q_OBJECT

public:
    CaptureFailurePage(const ViewEnvironment& environment, const Message& message);

Q_SIGNALS:
    void cancelled();
    void tryAgain();
};

} // namespace trovell
