// SPDX-License-Identifier: MIT

#include "views/app/AboutSettingsView.h"

#include "launch/ResourceSystem.h"
#include "preferences/AppConfiguration.h"
#include "views/app/CenteredColumn.h"
#include "views/app/SymbolLabel.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TrovellBrandMark.h"
#include "views/style/TrovellCardModifier.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int widestContent = 500;

constexpr SymbolLabel::Look headingLook{
    .symbolSize = 22, .symbolColor = ColorToken::brand, .role = TextRole::headline, .gap = 10};
constexpr SymbolLabel::Look badgeLook{.symbolSize = 14,
                                      .symbolColor = ColorToken::success,
                                      .role = TextRole::caption,
                                      .textColor = ColorToken::success,
                                      .gap = 5};

} // namespace

AboutSettingsView::AboutSettingsView(const SettingsEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment)
{
    const Localization& words = environment.words;
    const AppConfiguration& configuration = environment.configuration;
    auto* content = new CenteredColumn(environment.visual);
    content->add(new TrovellBrandMark(environment.visual, 72), 0);
    content->addText(TextRole::pageTitle, ColorToken::labelPrimary, widestContent, 10)
        ->setText(u"Trovell"_s);
    TextLabel* motto =
        content->addText(TextRole::title3, ColorToken::labelPrimary, widestContent, 2);
    TextLabel* version =
        content->addText(TextRole::caption, ColorToken::labelSecondary, widestContent, 4);
    words.render(this, [&words, &configuration, motto, version] {
        motto->setText(words.text(configuration.motto));
        version->setText(words.text(phrases::version, versionText(configuration)));
    });
    content->add(buildLinks(), 14);

    new ColumnLayout(this, 16, {content, buildPrivacyCard()});
    setMaximumWidth(widestContent);
}

QWidget* AboutSettingsView::buildLinks()
{
    const AppConfiguration& configuration = m_environment.configuration;
    auto* links = new QWidget;
    new RowLayout(links, 6,
                  {buildLink(u"hand.raised"_s, u"Privacy"_key, configuration.privacyURL),
                   buildLink(u"doc.text"_s, u"Terms"_key, configuration.termsURL),
                   buildLink(u"questionmark.circle"_s, u"Support"_key, configuration.supportURL)});
    return links;
}

QWidget* AboutSettingsView::buildLink(const QString& symbolName, TextKey<> label,
                                      const QUrl& address)
{
    auto* link = new SymbolLink(m_environment.visual, symbolName, {}, ColorToken::link);
    m_environment.words.renderText(link, label);
    ResourceSystem* resources = &m_environment.resources;
    connect(link, &QAbstractButton::clicked, this,
            [resources, address] { (void)resources->openResource(address); });
    return link;
}

QWidget* AboutSettingsView::buildPrivacyCard()
{
    const Localization& words = m_environment.words;
    auto* card = new TrovellCardModifier(m_environment.visual);
    auto* heading = new SymbolLabel(m_environment.visual, u"lock.shield.fill"_s, headingLook);
    heading->label()->setWordWrap(true);
    words.renderText(heading->label(), phrases::workspaceStaysHere);
    auto* text =
        new TextLabel(m_environment.visual, {}, TextRole::callout, ColorToken::labelSecondary);
    text->setWordWrap(true);
    words.renderText(
        text,
        u"Accessibility is used only to read and restore the windows you choose. Trovell does not upload your apps, files, window titles, or layouts."_key);
    new ColumnLayout(card, 8, {heading, text, Gap{2}, buildBadges()});
    return card;
}

QWidget* AboutSettingsView::buildBadges()
{
    auto* badges = new QWidget;
    auto* row = new RowLayout(badges, 8);
    for (const TextKey<> promise : {u"No analytics"_key, u"No cloud"_key, u"No ads"_key}) {
        auto* badge = new SymbolLabel(m_environment.visual, u"checkmark.circle.fill"_s, badgeLook);
        badge->label()->setWeight(QFont::Medium);
        badge->setPill(ColorToken::successFill);
        m_environment.words.renderText(badge->label(), promise);
        row->addWidget(badge);
    }
    row->addStretch(1);
    return badges;
}

} // namespace trovell
