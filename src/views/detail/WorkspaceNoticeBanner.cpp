// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceNoticeBanner.h"

#include "views/shared/ViewEnvironment.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

namespace trovell {

using namespace Qt::StringLiterals;

WorkspaceNoticeBanner::WorkspaceNoticeBanner(const ViewEnvironment& environment, QWidget* parent)
    : BannerFrame(environment.visual, Kind::success, parent), m_words(environment.words),
      m_label(new TextLabel(environment.visual, {}, TextRole::callout))
{
    setVisible(false);
    m_label->setWeight(QFont::Medium);
    m_label->setWordWrap(true);
    auto* symbol =
        new SymbolView(environment.visual, u"checkmark.circle.fill"_s, 20, ColorToken::successIcon);
    auto* dismiss = new SymbolButton(environment.visual, u"xmark"_s, {});
    dismiss->setSizes(24, 16);
    connect(dismiss, &QAbstractButton::clicked, this, &WorkspaceNoticeBanner::dismissed);

    // The border of one pixel, and for the round symbol two more.
    new RowLayout(this, {13, 11, 11, 11}, 10, {symbol, {m_label, 1}, dismiss});

    m_words.render(this, [this, dismiss] {
        dismiss->setAccessibleName(m_words.text(u"Dismiss"_key));
        dismiss->setToolTip(dismiss->accessibleName());
        showMessage();
    });
}

void WorkspaceNoticeBanner::setMessage(const Message& message)
{
    m_message = message;
    showMessage();
    setVisible(!message.isEmpty());
    if (isVisible())
        announce(m_label->text());
}

void WorkspaceNoticeBanner::showMessage()
{
    m_label->setText(m_words.text(m_message));
    setAccessibleName(m_label->text());
}

} // namespace trovell
