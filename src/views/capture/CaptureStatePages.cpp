// SPDX-License-Identifier: MIT

#include "views/capture/CaptureStatePages.h"

#include "views/style/Layouts.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "windows/AccessibilityPermissionManager.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int pageMargin = 24;
// The eye takes what stands a little above the middle for centred.
constexpr int bottomMargin = 48;
constexpr int pictureSize = 48;
constexpr int textWidthLimit = 460;
constexpr int titleGap = 12;
constexpr int textGap = 8;
constexpr int buttonsGap = 22;
constexpr int buttonSpacing = 10;
constexpr int linkGap = 16;
constexpr int stateNoteGap = 24;
constexpr int stateNoteSymbolSize = 16;
constexpr int noteSpacing = 6;
constexpr int ringGap = 16;

} // namespace

CaptureStatePage::CaptureStatePage(const ViewEnvironment& environment)
    : m_environment(environment), m_column(new ColumnLayout(0))
{
    new ColumnLayout(this, {pageMargin, pageMargin, pageMargin, bottomMargin}, 0,
                     {Stretch{}, m_column, Stretch{}});
}

void CaptureStatePage::addLine(int gap, const QList<QWidget*>& widgets, int spacing)
{
    m_column->addSpacing(gap);
    // Not an alignment, with which a text would get the height that it has in full width.
    auto* line = new RowLayout(spacing, {Stretch{}});
    for (QWidget* widget : widgets)
        line->addWidget(widget);
    line->addStretch();
    m_column->addLayout(line);
}

TextLabel* CaptureStatePage::addTitle(int gap)
{
    auto* title = new TextLabel(m_environment.visual, {}, TextRole::title2);
    title->setWordWrap(true);
    title->setPreferredWrapWidth(textWidthLimit);
    title->setAlignment(Qt::AlignHCenter);
    addLine(gap, {title});
    return title;
}

TextLabel* CaptureStatePage::addText(int gap)
{
    auto* text =
        new TextLabel(m_environment.visual, {}, TextRole::body, ColorToken::labelSecondary);
    text->setWordWrap(true);
    text->setPreferredWrapWidth(textWidthLimit);
    text->setAlignment(Qt::AlignHCenter);
    addLine(gap, {text});
    return text;
}

CaptureProgressPage::CaptureProgressPage(const ViewEnvironment& environment)
    : CaptureStatePage(environment)
{
    auto* ring = new ProgressRing(environment.visual, {});
    addLine(0, {ring});
    TextLabel* text = addText(ringGap);
    const Localization& words = environment.words;
    words.render(this, [&words, ring, text] {
        text->setText(words.text(u"Reading open application windows…"_key));
        ring->setAccessibleName(text->text());
    });
}

CapturePermissionPage::CapturePermissionPage(const ViewEnvironment& environment,
                                             AccessibilityPermissionManager& accessibility,
                                             bool offersAppsOnly)
    : CaptureStatePage(environment)
{
    const Localization& words = environment.words;
    addLine(0, {new SymbolView(environment.visual, u"macwindow.on.rectangle"_s, pictureSize)});
    words.renderText(addTitle(titleGap), u"Allow window control"_key);
    words.renderText(
        addText(textGap),
        u"Apps can still be saved as launch items, but Accessibility access is required to capture their exact window positions and sizes."_key);
    addButtons(accessibility);
    if (offersAppsOnly) {
        auto* link = new LinkButton(environment.visual, {});
        words.renderText(link, u"Continue with Apps Only"_key);
        connect(link, &QAbstractButton::clicked, this,
                &CapturePermissionPage::continueWithAppsOnly);
        addLine(linkGap, {link});
    }
    addNote();
}

void CapturePermissionPage::addButtons(AccessibilityPermissionManager& accessibility)
{
    const VisualStyle& visual = environment().visual;
    auto* request = new PushButton(visual, {}, PushButton::Kind::prominent);
    auto* settings = new PushButton(visual, {});
    environment().words.renderText(request, u"Request Access"_key);
    environment().words.renderText(settings, u"Open System Settings"_key);
    connect(request, &QAbstractButton::clicked, &accessibility,
            &AccessibilityPermissionManager::requestAccess);
    connect(settings, &QAbstractButton::clicked, &accessibility,
            &AccessibilityPermissionManager::openSystemSettings);
    addLine(buttonsGap, {request, settings}, buttonSpacing);
    setDefaultButton(request);
}

void CapturePermissionPage::addNote()
{
    const VisualStyle& visual = environment().visual;
    auto* note = new TextLabel(visual, {}, TextRole::callout, ColorToken::labelSecondary);
    environment().words.renderText(note, phrases::workspaceStaysHere);
    auto* lock =
        new SymbolView(visual, u"lock.fill"_s, stateNoteSymbolSize, ColorToken::labelSecondary);
    addLine(stateNoteGap, {lock, note}, noteSpacing);
}

CaptureFailurePage::CaptureFailurePage(const ViewEnvironment& environment, const Message& message)
    : CaptureStatePage(environment)
{
    const VisualStyle& visual = environment.visual;
    const Localization& words = environment.words;
    addLine(0, {new SymbolView(visual, u"exclamationmark.triangle"_s, pictureSize,
                               ColorToken::warningIcon)});
    words.renderText(addTitle(titleGap), u"Could Not Capture This Setup"_key);
    TextLabel* text = addText(textGap);
    words.render(text, [&words, text, message] { text->setText(words.text(message)); });
    auto* cancel = new PushButton(visual, {});
    auto* again = new PushButton(visual, {}, PushButton::Kind::prominent);
    words.renderText(cancel, u"Cancel"_key);
    words.renderText(again, u"Try Again"_key);
    connect(cancel, &QAbstractButton::clicked, this, &CaptureFailurePage::cancelled);
    connect(again, &QAbstractButton::clicked, this, &CaptureFailurePage::tryAgain);
    addLine(buttonsGap, {cancel, again}, buttonSpacing);
    setDefaultButton(again);
}

} // namespace trovell
