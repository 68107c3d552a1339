// SPDX-License-Identifier: MIT

#include "views/detail/AccessibilityBanner.h"

#include "views/shared/WrappingRow.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "windows/AccessibilityPermissionManager.h"

namespace trovell {

using namespace Qt::StringLiterals;

AccessibilityBanner::AccessibilityBanner(const ViewEnvironment& environment,
                                         AccessibilityPermissionManager& accessibility)
    : BannerFrame(environment.visual, Kind::warning), m_environment(environment)
{
    setVisible(false);
    const VisualStyle& visual = environment.visual;
    auto* symbol =
        new SymbolView(visual, u"exclamationmark.shield.fill"_s, 24, ColorToken::warningIcon);
    auto* title = new TextLabel(visual, {}, TextRole::headline);
    auto* explanation = new TextLabel(visual, {}, TextRole::callout, ColorToken::labelSecondary);
    title->setWordWrap(true);
    explanation->setWordWrap(true);

    auto* texts = new ColumnLayout(2, {title, explanation, Gap{8}, buildButtons(accessibility)});

    new RowLayout(this, {17, 15, 17, 15}, 12, {{symbol, 0, Qt::AlignTop}, {texts, 1}});

    environment.words.render(this, [this, title, explanation, &words = environment.words] {
        title->setText(words.text(u"Window restore is paused"_key));
        explanation->setText(words.text(
            u"Workspace items will still open. Allow Accessibility access to restore the saved layout."_key));
        setAccessibleName(title->text());
    });
}

QLayout* AccessibilityBanner::buildButtons(AccessibilityPermissionManager& accessibility)
{
    constexpr int gap = 8;
    auto* row = new WrappingRow(gap);
    const auto add = [&](TextKey<> key, auto action) {
        auto* button = new PushButton(m_environment.visual, {}, PushButton::Kind::bordered,
                                      PushButton::Scale::small);
        m_environment.words.renderText(button, key);
        connect(button, &QAbstractButton::clicked, &accessibility, action);
        row->addWidget(button);
    };
    add(u"Request Access"_key, &AccessibilityPermissionManager::requestAccess);
    add(u"Open Settings"_key, &AccessibilityPermissionManager::openSystemSettings);
    add(u"Try Again"_key, &AccessibilityPermissionManager::refresh);
    return row;
}

void AccessibilityBanner::setShown(bool isShown)
{
    const bool isNew = isShown && isHidden();
    setVisible(isShown);
    if (isNew && isVisible())
        announce(accessibleName());
}

} // namespace trovell
