// The program: opens the store, creates the services and serves until it is asked to end. What is
// unsaved then is saved when the store closes.

#include "app/AppConfiguration.h"
#include "app/AppDependencies.h"
#include "app/AppFolders.h"
#include "app/PreferenceStore.h"
#include "app/TerminationSignals.h"
#include "model/WorkspaceStore.h"
#include "support/SystemClock.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace trovell;

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const TerminationSignals terminationSignals;
    const auto store = WorkspaceStore::open(dataFolder());
    if (!store) {
        QTextStream(stderr) << storeOpeningFailureText(store.error()) << Qt::endl;
        return EXIT_FAILURE;
    }
    PlatformAdapters platform = makePlatformAdapters(appConfiguration().bundleIdentifier);
    PreferenceStore defaults(preferencesFile());
    SystemClock clock;
    const AppDependencies dependencies(platform, defaults, clock, appConfiguration());
    return QCoreApplication::exec();
}
