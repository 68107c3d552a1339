// SPDX-License-Identifier: MIT

#include "views/editor/AddWebLinkView.h"

#include "launch/URLValidation.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/TextField.h"

namespace trovell {

AddWebLinkView::AddWebLinkView(const ViewEnvironment& environment, const QString& text,
                               QWidget* window)
    : TextSheet(environment, {.width = 460, .spacing = 16, .titleRole = TextRole::title2},
                {.title = u"Add Web Link"_key,
                 .hint = u"example.com"_key,
                 .fieldName = u"Add Web Link"_key,
                 .confirm = u"Add"_key},
                text, window)
{
    connect(&field(), &QLineEdit::textChanged, this, &AddWebLinkView::textChanged);
}

void AddWebLinkView::confirm()
{
    const auto url = validatedWebURL(field().text());
    if (!url) {
        showWorkspaceAlert(environment(), this, description(url.error()));
        return;
    }
    Q_EMIT added(*url);
    accept();
}

} // namespace trovell
