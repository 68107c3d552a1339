// SPDX-License-Identifier: MIT
//
// The window layout in the editor: capturing it anew, or clearing it, with the next save. Main
// thread.
#pragma once

#include "editing/WorkspaceEdits.h"
#include "views/editor/SavedWindowsList.h"
#include "views/shared/EditingEnvironment.h"

#include <QCoro/QCoroTask>
#include <QPointer>
#include <QWidget>

namespace trovell {

class PushButton;
class TextLabel;

class EditorLayoutSection : public QWidget {
    Q_OBJECT

public:
    /// Null for a workspace that is yet to be made.
    EditorLayoutSection(const EditingEnvironment& environment, TrovellWorkspace* workspaceOrNull,
                        const QList<EditablePlacement>& placements, QWidget* parent = nullptr);

    [[nodiscard]] LayoutChange layoutChange() const { return m_change; }
    /// The saved windows as they were switched.
    [[nodiscard]] const QList<EditablePlacement>& placements() const
    {
        return m_savedWindows->placements();
    }
    [[nodiscard]] const QList<CapturedApplication>& capturedApplications() const
    {
        return m_capturedApplications;
    }
    [[nodiscard]] const QList<RetainedPlacementDraft>& retainedPlacements() const
    {
        return m_retainedPlacements;
    }

Q_SIGNALS:
    /// In the product's words.
    void failed(const trovell::Message& reason);

private:
    QWidget* makeActions();
    QWidget* makeNotice();
    QCoro::Task<> captureIfTrusted();
    QCoro::Task<> capture();
    void review();
    void clear();
    void setChange(LayoutChange change);
    void showState();
    [[nodiscard]] QString status() const;

    const EditingEnvironment m_environment;
    const QPointer<TrovellWorkspace> m_workspace;
    LayoutChange m_change = LayoutChange::none;
    bool m_isCleared = false;
    QList<CapturedApplication> m_capturedApplications;
    QList<RetainedPlacementDraft> m_retainedPlacements;
    PushButton* m_capture;
    PushButton* m_clear;
    TextLabel* m_status;
    SavedWindowsList* m_savedWindows;
    QWidget* m_notice;
};

} // namespace trovell
