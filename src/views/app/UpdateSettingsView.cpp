// SPDX-License-Identifier: MIT

#include "views/app/UpdateSettingsView.h"

#include "preferences/AppConfiguration.h"
#include "preferences/AppPreferences.h"
#include "services/update/UpdateController.h"
#include "views/app/PreferenceSwitch.h"
#include "views/app/SettingsCard.h"
#include "views/app/SymbolLabel.h"
#include "views/style/ForwardedClicks.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/Switch.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int updateCardGap = 14;
constexpr int noteInset = 17;

} // namespace

UpdateSettingsView::UpdateSettingsView(const SettingsEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment)
{
    auto* column = new ColumnLayout(this, updateCardGap, {buildChecks()});
    if (!environment.updateController.isConfigured())
        column->addWidget(buildExplanation());
    column->addWidget(buildStatus());
    column->addWidget(buildVersion());
}

QWidget* UpdateSettingsView::buildChecks()
{
    UpdateController* controller = &m_environment.updateController;
    auto* card = new SettingsCard(m_environment.visual);
    Switch* automatic = preferenceSwitch(m_environment, u"Automatically check for updates"_key,
                                         {&AppPreferences::automaticallyCheckForUpdates,
                                          &AppPreferences::setAutomaticallyCheckForUpdates,
                                          &AppPreferences::automaticallyCheckForUpdatesChanged});
    automatic->setEnabled(controller->isConfigured());
    QHBoxLayout* row = card->addRow();
    row->addWidget(automatic);
    forwardClicks(*row->parentWidget(), *automatic);

    auto* check = new PushButton(m_environment.visual, {}, PushButton::Kind::bordered,
                                 PushButton::Scale::small);
    m_environment.words.renderText(check, u"Check Now"_key);
    check->setEnabled(controller->isConfigured());
    connect(check, &QAbstractButton::clicked, controller, &UpdateController::checkForUpdates);
    QHBoxLayout* checkRow = card->addRow();
    checkRow->setContentsMargins(checkRow->contentsMargins() + QMargins(0, 9, 0, 9));
    checkRow->addWidget(check);
    checkRow->addStretch();
    return card;
}

QWidget* UpdateSettingsView::buildExplanation()
{
    auto* note = new SymbolLabel(m_environment.visual, u"info.circle"_s,
                                 {.textColor = ColorToken::labelSecondary, .gap = 10});
    note->label()->setWordWrap(true);
    note->layout()->setAlignment(note->symbol(), Qt::AlignTop);
    note->layout()->setContentsMargins(noteInset - 1, 0, noteInset, 0);
    m_environment.words.renderText(
        note->label(),
        u"Update checks are disabled until a Sparkle appcast URL and EdDSA public key are configured."_key);
    return note;
}

QWidget* UpdateSettingsView::buildStatus()
{
    auto* status =
        new TextLabel(m_environment.visual, {}, TextRole::caption, ColorToken::labelSecondary);
    status->setWordWrap(true);
    status->setContentsMargins(noteInset, 0, noteInset, 0);
    const Localization& words = m_environment.words;
    const UpdateController* controller = &m_environment.updateController;
    const auto show = [&words, controller, status] {
        status->setText(words.text(controller->statusMessage()));
        status->setVisible(!controller->statusMessage().isEmpty());
    };
    words.render(status, show);
    connect(controller, &UpdateController::statusMessageChanged, status, show);
    return status;
}

QWidget* UpdateSettingsView::buildVersion()
{
    auto* card = new SettingsCard(m_environment.visual);
    auto* label = new TextLabel(m_environment.visual, {});
    m_environment.words.renderText(label, u"Version"_key);
    auto* value = new TextLabel(m_environment.visual, versionText(m_environment.configuration),
                                TextRole::body, ColorToken::labelSecondary);
    QHBoxLayout* row = card->addRow();
    row->addWidget(label, 1);
    row->addWidget(value);
    return card;
}

} // namespace trovell
