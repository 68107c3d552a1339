// SPDX-License-Identifier: MIT
//
// What shows a check for updates and leads through the update. Main thread.
#pragma once

#include "services/update/Updater.h"
#include "views/shared/ViewEnvironment.h"

#include <QWidget>

class QProgressBar;

namespace trovell {

class NotesArea;
class ProgressRing;
class PushButton;
class TextLabel;
class TrovellCardModifier;

/// A window of its own or all that stands in one, whose size it sets: 480 wide and as high as its
/// content. Show it at `Updater::checkRequested`. It closes its window when all is done; closing
/// that ends what runs and deletes an update that was not handed over.
class UpdateView : public QWidget {
    Q_OBJECT

public:
    /// `updater` outlives the view.
    UpdateView(const ViewEnvironment& environment, Updater& updater, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;

private:
    void build();
    QLayout* buildHeading();
    QWidget* buildNotes();
    QLayout* buildButtons();
    void showState(const UpdateState& state);
    void showTexts(const UpdateState& state);
    void showProgress(const UpdateState& state);
    void enterPhase();
    void takeNextStep();
    void fit();

    ViewEnvironment m_environment;
    Updater& m_updater;
    /// What was last announced.
    QString m_announced;
    bool m_isEnding = false;
    TextLabel* m_title;
    TextLabel* m_text;
    TrovellCardModifier* m_notesCard;
    NotesArea* m_notes;
    ProgressRing* m_ring;
    QProgressBar* m_bar;
    PushButton* m_close;
    PushButton* m_next;
};

} // namespace trovell
