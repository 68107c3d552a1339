// SPDX-License-Identifier: MIT

#include "views/app/PrivacyView.h"

#include "views/app/CenteredColumn.h"
#include "views/app/SymbolLabel.h"
#include "views/shared/SheetParts.h"
#include "views/style/Layouts.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int sheetWidth = 540;
constexpr int privacyMargin = 32;
constexpr int privacyWrapWidth = 460;
constexpr int promiseWidth = 280;

constexpr SymbolLabel::Look promiseLook{.symbolColor = ColorToken::successIcon,
                                        .role = TextRole::callout};

} // namespace

PrivacyView::PrivacyView(const ViewEnvironment& environment, QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment)
{
    setBody(buildBody());
    environment.words.render(this, [this] {
        setTitle(*this, m_environment.words.text(phrases::workspaceStaysHere));
        showCloseButton(m_environment.words.text(u"Cancel"_key));
    });
    setBoxWidth(sheetWidth);
}

QWidget* PrivacyView::buildBody()
{
    const Localization& words = m_environment.words;
    auto* content = new CenteredColumn(m_environment.visual);
    content->layout()->setContentsMargins(privacyMargin, privacyMargin, privacyMargin,
                                          privacyMargin - 4);
    auto* hand = new SymbolView(m_environment.visual, u"hand.raised.fill"_s, 28);
    hand->setTile(54, m_environment.visual.radius(Radius::card));
    content->add(hand, 0);
    words.renderText(
        content->addText(TextRole::title2, ColorToken::labelPrimary, privacyWrapWidth, 13),
        phrases::workspaceStaysHere);
    words.renderText(
        content->addText(TextRole::body, ColorToken::labelSecondary, privacyWrapWidth, 9),
        u"Trovell uses Accessibility permission only to read and restore the position and size of windows you choose. It does not upload your apps, files, window titles, or layouts."_key);
    content->add(buildPromises(), 18);
    return content;
}

QWidget* PrivacyView::buildPromises()
{
    auto* promises = new QWidget;
    auto* column = new ColumnLayout(promises, 8);
    for (const TextKey<> promise :
         {u"No analytics"_key, u"No cloud workspace storage"_key, u"No advertising SDKs"_key}) {
        auto* line = new SymbolLabel(m_environment.visual, u"checkmark.circle.fill"_s, promiseLook);
        line->label()->setWordWrap(true);
        line->label()->setPreferredWrapWidth(promiseWidth);
        m_environment.words.renderText(line->label(), promise);
        column->addWidget(line);
    }
    return promises;
}

} // namespace trovell
