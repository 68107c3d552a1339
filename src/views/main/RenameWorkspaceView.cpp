// SPDX-License-Identifier: MIT

#include "views/main/RenameWorkspaceView.h"

#include "editing/WorkspaceCommands.h"
#include "model/StoreContext.h"
#include "model/TrovellWorkspace.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

#include <QVBoxLayout>

namespace trovell {

namespace {

constexpr int boxWidth = 440;
constexpr int margin = 24;
constexpr int columnGap = 18;
constexpr int buttonGap = 10;

} // namespace

RenameWorkspaceView::RenameWorkspaceView(const EditingEnvironment& environment,
                                         TrovellWorkspace& workspace, QWidget* window)
    : Sheet(environment.visual, window, environment.words.text(u"Rename Workspace"_key)),
      m_environment(environment), m_workspace(&workspace),
      m_name(new TextField(environment.visual, {})),
      m_rename(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    m_name->setText(workspace.name());
    connect(m_name, &QLineEdit::textChanged, this, &RenameWorkspaceView::allowRenaming);
    connect(m_rename, &QAbstractButton::clicked, this, &RenameWorkspaceView::save);
    setBody(buildForm());
    setBoxWidth(boxWidth);
    setInitialFocus(m_name);
    setDefaultButton(m_rename);
    allowRenaming();
}

QWidget* RenameWorkspaceView::buildForm()
{
    const Localization& words = m_environment.words;
    auto* title = new TextLabel(m_environment.visual, {}, TextRole::title);
    words.render(this, [this, title] {
        const QString text = m_environment.words.text(u"Rename Workspace"_key);
        title->setText(text);
        setWindowTitle(text);
        setAccessibleName(text);
        const QString hint = m_environment.words.text(u"Workspace name"_key);
        m_name->setPlaceholderText(hint);
        m_name->setAccessibleName(hint);
    });
    auto* cancelButton = new PushButton(m_environment.visual, {});
    words.renderText(cancelButton, u"Cancel"_key);
    words.renderText(m_rename, u"Rename"_key);
    connect(cancelButton, &QAbstractButton::clicked, this, &Sheet::cancel);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(buttonGap);
    buttons->addStretch();
    buttons->addWidget(cancelButton);
    buttons->addWidget(m_rename);
    auto* form = new QWidget;
    auto* column = new QVBoxLayout(form);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(columnGap);
    column->addWidget(title);
    column->addWidget(m_name);
    column->addLayout(buttons);
    return form;
}

void RenameWorkspaceView::allowRenaming()
{
    m_rename->setEnabled(!m_name->text().trimmed().isEmpty());
}

void RenameWorkspaceView::save()
{
    if (!m_workspace || m_workspace->isRemoved()) {
        reject();
        return;
    }
    const auto renamed = renameWorkspace(m_environment.context, *m_workspace, m_name->text());
    if (!renamed) {
        showFailureAlert(m_environment, this, u"Workspace Could Not Be Renamed"_key,
                         description(renamed.error()));
        return;
    }
    Q_EMIT saved(m_workspace);
    accept();
}

} // namespace trovell
