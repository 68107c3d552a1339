// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Group.h"
#include "views/style/VisualStyle.h"

#include <optional>

namespace trovell {

class ChoiceButton;

/// A row of choices of which at most one is selected. It is one tab stop: arrow keys move the
/// focus, Space selects. To assistive tools it is a group of radio buttons, each named by its
/// identifier.
class ChoiceRow : public Group {
    Q_OBJECT

public:
    enum class Look { symbol, swatch };

    /// `name` is the accessible name of the group; the identifiers are names of symbols or accents.
    ChoiceRow(const VisualStyle& visual, Look look, const QString& name,
              const QStringList& identifiers, QWidget* parent = nullptr);

    /// The identifier of the selected choice; none when the last text set is no choice here.
    std::optional<QString> selected() const;
    /// Selects a choice without a signal. An unknown text leaves every choice unselected.
    void setSelected(const QString& identifier);

Q_SIGNALS:
    /// The person has chosen; not emitted for the choice that was selected already.
    void chosen(const QString& identifier);

protected:
    bool eventFilter(QObject* button, QEvent* event) override;

private:
    void addButton(ChoiceButton* button);
    void makeTabStop(ChoiceButton* button);

    QList<ChoiceButton*> m_buttons;
};

} // namespace trovell
