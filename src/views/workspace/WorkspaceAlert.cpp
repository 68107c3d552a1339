#include "views/workspace/WorkspaceAlert.h"

#include "views/style/Alert.h"
#include "views/ViewEnvironment.h"

namespace trovell {

Alert* showWorkspaceAlert(const ViewEnvironment& environment, QWidget* over, const QString& reason)
{
    const Localization& words = environment.words;
    const QString message =
        reason.isEmpty() ? words.text(phrases::unknownError) : words.shownDetail(reason);
    auto* alert =
        new Alert(environment.visual, over, words.text(phrases::couldNotBeSaved), message);
    alert->addButton(words.text(u"OK"_key), Alert::Role::confirm);
    alert->open();
    return alert;
}

} // namespace trovell
