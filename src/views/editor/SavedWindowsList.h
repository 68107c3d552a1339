// SPDX-License-Identifier: MIT
//
// The saved windows in the editor, by application: what each remembers beside its frame, and
// whether that comes back. Main thread.
#pragma once

#include "editing/EditablePlacement.h"
#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class SavedWindowsList : public QWidget {
    Q_OBJECT

public:
    /// Lists those that have something to say, and nothing where none has.
    SavedWindowsList(const ViewEnvironment& environment,
                     const QList<EditablePlacement>& placements);

    /// All of them, as they were switched.
    [[nodiscard]] const QList<EditablePlacement>& placements() const { return m_placements; }
    [[nodiscard]] bool isEmpty() const { return m_groups.isEmpty(); }

private:
    /// Positions in the list, all of one application.
    using Positions = QList<qsizetype>;

    [[nodiscard]] QWidget* makeApplication(const Positions& windows);
    [[nodiscard]] QWidget* makeHeading(const Positions& windows);
    [[nodiscard]] QWidget* makeWindow(qsizetype position);
    [[nodiscard]] QWidget* makeOptions(qsizetype position);
    /// A check box bound to that member of these windows.
    [[nodiscard]] QWidget* makeOption(const Positions& windows, bool EditablePlacement::* member,
                                      TextKey<> text);

    const ViewEnvironment m_environment;
    QList<EditablePlacement> m_placements;
    QList<Positions> m_groups;
};

} // namespace trovell
