// SPDX-License-Identifier: MIT

#include "views/editor/OpenPanel.h"

#include "views/editor/ApplicationChooser.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

namespace trovell {

using namespace Qt::StringLiterals;

QString panelTitle(const Localization& words, const OpenPanelRequest& request)
{
    if (request.title)
        return words.text(*request.title);
    if (!request.allowsMultiple)
        return words.text(u"Locate Again"_key);
    switch (request.type) {
    case WorkspaceItemType::application:
        return words.text(u"Choose Applications"_key);
    case WorkspaceItemType::folder:
        return words.text(u"Choose Folders"_key);
    default:
        return words.text(u"Choose Files"_key);
    }
}

namespace {

/// The system's one where there is one, since the user's own is searched first otherwise.
QString applicationsFolder()
{
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    const auto exists = [](const QString& folder) { return QDir(folder).exists(); };
    const auto found = std::find_if(folders.rbegin(), folders.rend(), exists);
    return found == folders.rend() ? QString() : *found;
}

void setUpApplications(QFileDialog& dialog, const Localization& words)
{
    dialog.setNameFilter(words.text(u"Applications"_key) + u" (*.desktop)"_s);
    dialog.setDirectory(applicationsFolder());
}

/// Dialogs of desktops choose one folder; Qt's own has views that can be told to choose more.
void setUpFolders(QFileDialog& dialog, bool allowsMultiple)
{
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (!allowsMultiple)
        return;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    for (const QString& name : {u"listView"_s, u"treeView"_s}) {
        if (auto* view = dialog.findChild<QAbstractItemView*>(name))
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
}

} // namespace

OpenPanel desktopOpenPanel(const EditingEnvironment& environment)
{
    return [environment](const OpenPanelRequest& request, QWidget* over, const ChosenURLs& chosen) {
        if (request.type == WorkspaceItemType::application)
            openApplicationChooser(environment, request, over, chosen);
        else
            openFilePanel(environment.words, request, over, chosen);
    };
}

void openFilePanel(const Localization& words, const OpenPanelRequest& request, QWidget* over,
                   const ChosenURLs& chosen)
{
    auto* dialog = new QFileDialog(over->window(), panelTitle(words, request));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setDirectory(QDir::homePath());
    dialog->setFileMode(request.allowsMultiple ? QFileDialog::ExistingFiles
                                               : QFileDialog::ExistingFile);
    if (request.type == WorkspaceItemType::folder)
        setUpFolders(*dialog, request.allowsMultiple);
    if (request.type == WorkspaceItemType::application)
        setUpApplications(*dialog, words);
    // Qt's own dialog does not emit urlsSelected.
    QObject::connect(dialog, &QDialog::accepted, over,
                     [dialog, chosen] { chosen(dialog->selectedUrls()); });
    dialog->open();
}

} // namespace trovell
