// SPDX-License-Identifier: MIT

#include "views/app/PermissionPage.h"

#include "views/app/CenteredColumn.h"
#include "views/app/SymbolLabel.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "windows/AccessibilityPermissionManager.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int wrapWidth = 440;
constexpr int permissionGap = 18;
constexpr int permissionTitleGap = 10;

constexpr SymbolLabel::Look statusLook{.symbolSize = 16, .role = TextRole::callout};

} // namespace

PermissionPage::PermissionPage(const ViewEnvironment& environment,
                               AccessibilityPermissionManager& accessibility)
    : m_environment(environment), m_accessibility(accessibility),
      m_symbol(new SymbolView(environment.visual, {}, 48)),
      m_status(new SymbolLabel(environment.visual, {}, statusLook)),
      m_request(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    const Localization& words = environment.words;
    auto* content = new CenteredColumn(environment.visual);
    content->add(m_symbol, 0);
    words.renderText(
        content->addText(TextRole::pageTitle, ColorToken::labelPrimary, wrapWidth, permissionGap),
        u"Allow window control"_key);
    words.renderText(
        content->addText(TextRole::body, ColorToken::labelPrimary, wrapWidth, permissionTitleGap),
        u"Accessibility access lets Trovell read and restore window size and position. You can still launch workspace items without it."_key);
    content->add(m_status, permissionGap);
    content->add(buildPrivacyLink(), permissionGap);
    content->add(buildButtons(), permissionGap);

    new ColumnLayout(this, 0, {Stretch{}, content, Stretch{}});
    words.render(this, [this] { showPermission(); });
    connect(&accessibility, &AccessibilityPermissionManager::isTrustedChanged, this,
            &PermissionPage::showPermission);
}

QWidget* PermissionPage::buildPrivacyLink()
{
    auto* link = new LinkButton(m_environment.visual, {});
    m_environment.words.renderText(link, u"Read the privacy explanation"_key);
    connect(link, &QAbstractButton::clicked, this, &PermissionPage::privacyRequested);
    return link;
}

QWidget* PermissionPage::buildButtons()
{
    auto* settings = new PushButton(m_environment.visual, {});
    m_environment.words.renderText(m_request, u"Request Permission"_key);
    m_environment.words.renderText(settings, u"Open System Settings"_key);
    connect(m_request, &QAbstractButton::clicked, &m_accessibility,
            &AccessibilityPermissionManager::requestAccess);
    connect(settings, &QAbstractButton::clicked, &m_accessibility,
            &AccessibilityPermissionManager::openSystemSettings);

    auto* buttons = new QWidget;
    new RowLayout(buttons, 10, {m_request, settings});
    return buttons;
}

void PermissionPage::showPermission()
{
    const Localization& words = m_environment.words;
    const bool isGranted = m_accessibility.isTrusted();
    m_symbol->setSymbol(isGranted ? u"checkmark.shield.fill"_s : u"macwindow.on.rectangle"_s);
    m_symbol->setColor(isGranted ? ColorToken::successIcon : ColorToken::brand);
    m_status->symbol()->setSymbol(isGranted ? u"checkmark.circle.fill"_s : u"lock.fill"_s);
    m_status->symbol()->setColor(isGranted ? ColorToken::successIcon : ColorToken::labelSecondary);
    m_status->label()->setColor(isGranted ? ColorToken::success : ColorToken::labelSecondary);
    m_status->label()->setText(isGranted ? words.text(u"Access granted"_key)
                                         : words.text(phrases::workspaceDataStaysHere));
    m_request->setEnabled(!isGranted);
}

} // namespace trovell
