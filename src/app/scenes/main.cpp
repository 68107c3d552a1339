// SPDX-License-Identifier: MIT
//
// The program: one instance per session, which opens the store and serves until it is asked to end.
// What is unsaved then is saved when the store closes.

#include "app/AppFolders.h"
#include "app/scenes/TrovellApp.h"
#include "app/TerminationSignals.h"
#include "platform/BackEnds.h"
#include "preferences/AppConfiguration.h"
#include "views/style/Accessibility.h"

#include <QApplication>
#include <QMessageBox>
#include <QTextStream>

#include <future>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

/// Tells people with and without a terminal why the program ends.
int failToStart(const QString& reason)
{
    QTextStream(stderr) << reason << Qt::endl;
    QMessageBox message(QMessageBox::Critical, u"Trovell"_s, reason);
    message.show();
    QApplication::exec();
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    const QString& identifier = appConfiguration().bundleIdentifier;
    const SessionFacts session = sessionFacts();
    const BackEnd& backEnd = backEndFor(session);
    const auto activation = backEnd.makeActivation(identifier);
    if (activation->forwardToRunningInstance())
        return EXIT_SUCCESS;

    // The store is verified while the connections to the desktop are made.
    auto preparation =
        std::async(std::launch::async, [] { return WorkspaceStore::prepare(dataFolder()); });
    installAccessibleParts();
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(identifier);
    const TerminationSignals terminationSignals;
    auto prepared = preparation.get();
    if (!prepared)
        return failToStart(storeOpeningFailureText(prepared.error()).productText());
    auto store = WorkspaceStore::open(std::move(*prepared));
    if (!store)
        return failToStart(storeOpeningFailureText(store.error()).productText());

    TrovellApp trovell(backEnd.create(identifier), std::move(*store));
    QObject::connect(activation.get(), &ActivationSystem::activationRequested, &trovell,
                     &TrovellApp::openMainWindow);
    trovell.openMainWindow();
    return QApplication::exec();
}
