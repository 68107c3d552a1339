// SPDX-License-Identifier: MIT
//
// The three choices of a workspace's look and key, as the editor and the capture sheet offer them.
// Main thread.
#pragma once

#include "model/WorkspaceChoices.h"

#include "support/TextKey.h"

#include <QObject>

namespace trovell {

class ChoiceRow;
class Localization;
class Picker;
struct ViewEnvironment;

/// Makes the controls and keeps the choices in step with them. A symbol or accent that is not on
/// offer shows as nothing selected and stays as it is until another one is chosen.
class WorkspaceChoiceControls : public QObject {
    Q_OBJECT

public:
    /// The controls are children of `parent`, for its layout to place; so is this object.
    /// `noShortcut` is the key of the text that the first entry of the shortcuts shows.
    WorkspaceChoiceControls(const ViewEnvironment& environment, const WorkspaceChoices& choices,
                            TextKey<> noShortcut, QWidget* parent);

    [[nodiscard]] const WorkspaceChoices& choices() const { return m_choices; }

    [[nodiscard]] ChoiceRow* icons() const { return m_icons; }
    [[nodiscard]] ChoiceRow* accents() const { return m_accents; }
    [[nodiscard]] Picker* shortcut() const { return m_shortcut; }

Q_SIGNALS:
    void choicesChanged();

private:
    void showShortcuts(const Localization& words, TextKey<> noShortcut);

    WorkspaceChoices m_choices;
    ChoiceRow* m_icons;
    ChoiceRow* m_accents;
    Picker* m_shortcut;
};

} // namespace trovell
