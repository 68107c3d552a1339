// SPDX-License-Identifier: MIT

#include "views/capture/CapturedWindowRow.h"

#include "views/capture/CaptureWindowMiniature.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/ForwardedClicks.h"
#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"
#include "windows/CapturedApplication.h"

#include <QAbstractButton>

namespace trovell {

namespace {

constexpr int trailingMargin = 16;
// Of the miniature to the rules above and below.
constexpr int verticalMargin = 8;

} // namespace

CapturedWindowRow::CapturedWindowRow(const ViewEnvironment& environment,
                                     const CapturedWindow& window, QAbstractButton* toggle,
                                     const Look& look)
{
    const VisualStyle& visual = environment.visual;
    auto* miniature = new CaptureWindowMiniature(visual, window, look.miniature);
    auto* title =
        new TextLabel(visual, window.windowTitle.value_or(QString()), look.role, look.color);
    title->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    forwardClicks(*title, *toggle);
    forwardClicks(*miniature, *toggle);
    new RowLayout(this, {look.leadingMargin, verticalMargin, trailingMargin, verticalMargin},
                  look.gap, {toggle, miniature, title});
    setMinimumHeight(visual.tokens().size(Tokens::Size::captureWindowRow));
    if (window.windowTitle) {
        toggle->setAccessibleName(*window.windowTitle);
        return;
    }
    const Localization& words = environment.words;
    words.render(this, [&words, title, toggle] {
        title->setText(words.text(u"Untitled Window"_key));
        toggle->setAccessibleName(title->text());
    });
}

} // namespace trovell
