// SPDX-License-Identifier: MIT
//
// Turns what is open right now into a workspace, or into the window layout of one. Main thread.
#pragma once

#include "editing/CaptureDraft.h"
#include "views/shared/EditingEnvironment.h"
#include "views/style/Sheet.h"

#include <QCoro/QCoroTask>

class QVBoxLayout;

namespace trovell {

class PushButton;
class TextLabel;

/// How far the capture is.
struct CaptureLoadState {
    enum class Kind { loaded, failed, idle, loading };

    Kind kind = Kind::idle;
    /// Of `loaded`: applications were listed without their windows.
    bool appsOnly = false;
    /// Of `failed`: why.
    Message message = {};
};

/// Reads the open windows as soon as it is opened, lets the user choose among them and saves.
///
///     auto* sheet = new WorkspaceCaptureView(environment, CapturePurpose::create, nullptr, this);
///     connect(sheet, &WorkspaceCaptureView::saved, this, …);
///     sheet->open();
class WorkspaceCaptureView : public Sheet {
    Q_OBJECT

public:
    /// `workspaceOrNull` is the one to update or to start from; null for `create`. It may be
    /// deleted while the sheet is open. `window` is any widget of the window to cover.
    WorkspaceCaptureView(const EditingEnvironment& environment, CapturePurpose purpose,
                         TrovellWorkspace* workspaceOrNull, QWidget* window);

    void open() override;

    [[nodiscard]] const CaptureLoadState& loadState() const { return m_loadState; }

Q_SIGNALS:
    /// The workspace is stored; the sheet closes after this. `notice` is one line about it.
    void saved(trovell::TrovellWorkspace* workspace, const trovell::Message& notice);

private:
    QWidget* makeHeader();
    QWidget* makeFooter();
    [[nodiscard]] QString shownTitle() const;
    [[nodiscard]] QString shownSubtitle() const;

    QCoro::Task<> loadCapture();
    QCoro::Task<> capture(int load);
    void showCapture(const QList<CapturedApplication>& applications);
    QCoro::Task<> continueWithAppsOnly(int load);

    void setLoadState(const CaptureLoadState& state);
    /// The page for the present state, and who has the focus on it.
    QWidget* makePage();
    QWidget* makeLoadedPage();
    QWidget* makePermissionPage();
    QWidget* makeFailurePage();
    void showPage(QWidget* page);
    void showCloseButtonWhereNeeded();
    void showSummary();
    void saveCapture();

    const EditingEnvironment m_environment;
    const CapturePurpose m_purpose;
    QPointer<TrovellWorkspace> m_workspace;
    /// As it was when the sheet was made.
    QString m_workspaceName;
    CaptureDraft m_draft;
    CaptureLoadState m_loadState;
    /// Tells the present capture from earlier ones that still run.
    int m_loadCount = 0;
    QVBoxLayout* m_pages;
    QWidget* m_page = nullptr;
    QWidget* m_firstFocus = nullptr;
    TextLabel* m_summary = nullptr;
    PushButton* m_saveButton = nullptr;
};

} // namespace trovell
