// SPDX-License-Identifier: MIT

#include "views/shared/WorkspaceAlert.h"

#include "views/shared/ViewEnvironment.h"
#include "views/style/Alert.h"

namespace trovell {

Alert* showFailureAlert(const ViewEnvironment& environment, QWidget* over, TextKey<> title,
                        const Message& reason)
{
    const Localization& words = environment.words;
    auto* alert = new Alert(environment.visual, over, {}, {});
    words.render(alert, [&words, alert, title, reason] {
        alert->setTexts(words.text(title),
                        reason.isEmpty() ? words.text(phrases::unknownError) : words.text(reason));
    });
    words.renderText(alert->addButton({}, Alert::Role::confirm), u"OK"_key);
    alert->open();
    return alert;
}

Alert* showWorkspaceAlert(const ViewEnvironment& environment, QWidget* over, const Message& reason)
{
    return showFailureAlert(environment, over, phrases::couldNotBeSaved, reason);
}

} // namespace trovell
