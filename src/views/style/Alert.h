// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/PushButton.h"
#include "views/style/Sheet.h"

class QBoxLayout;

namespace trovell {

class TextLabel;

/// A question or message with one to three buttons.
///
///     auto* alert = new Alert(visual, this, tr("Delete Workspace?"), tr("… cannot be undone."));
///     alert->addButton(tr("Cancel"), Alert::Role::cancel);
///     alert->addButton(tr("Delete"), Alert::Role::destructive);
///     connect(alert, &Alert::chosen, this, [](Alert::Role role) { … });
///     alert->open();
///
/// Add the action last. With a destructive button the cancel button has the focus and is the
/// default; otherwise the confirming one. Escape chooses cancel, whether there is a button for it
/// or not.
class Alert : public Sheet {
    Q_OBJECT

public:
    enum class Role { cancel, confirm, destructive };
    Q_ENUM(Role)

    Alert(const VisualStyle& visual, QWidget* window, const QString& title, const QString& message);

    /// Also while it is open: the language may change under it.
    void setTexts(const QString& title, const QString& message);

    PushButton* addButton(const QString& text, Role role);

    void open() override;

public Q_SLOTS:
    void cancel() override;

Q_SIGNALS:
    /// Once, after the alert has closed.
    void chosen(trovell::Alert::Role role);

private:
    void choose(Role role);
    PushButton* safeDefault() const;

    TextLabel* m_heading;
    TextLabel* m_message;
    QBoxLayout* m_buttonRow;
    QList<std::pair<Role, PushButton*>> m_buttons;
};

} // namespace trovell
