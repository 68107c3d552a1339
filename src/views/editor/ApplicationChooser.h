// SPDX-License-Identifier: MIT
//
// The sheet in which installed applications are chosen: a list that can be searched, and the way to
// any other desktop file. Main thread.
#pragma once

#include "views/editor/OpenPanel.h"
#include "views/style/Sheet.h"

class QSortFilterProxyModel;
class QStandardItemModel;

namespace trovell {

class PushButton;
class RowList;
class TextField;
class TextLabel;

class ApplicationChooser : public Sheet {
    Q_OBJECT

public:
    /// The applications are listed on a worker and appear when it is done.
    ApplicationChooser(const EditingEnvironment& environment, const OpenPanelRequest& request,
                       QWidget* window);

Q_SIGNALS:
    /// Once, in the order of the list; the sheet closes after it.
    void chosen(const QList<QUrl>& urls);

private:
    QWidget* makeHeader();
    QWidget* makeBody();
    QWidget* makeFooter();
    void showTitle();
    void loadApplications();
    void search(const QString& text);
    void selectFirst();
    /// From top to bottom.
    [[nodiscard]] QList<QUrl> selectedURLs() const;
    void showState();
    void choose(const QList<QUrl>& urls);
    bool eventFilter(QObject* watched, QEvent* event) override;

    const EditingEnvironment m_environment;
    const OpenPanelRequest m_request;
    TextField* m_search;
    QStandardItemModel* m_model;
    QSortFilterProxyModel* m_matches;
    RowList* m_list;
    TextLabel* m_nothing;
    PushButton* m_choose;
    bool m_isLoaded = false;
};

/// As an `OpenPanel` opens it.
void openApplicationChooser(const EditingEnvironment& environment, const OpenPanelRequest& request,
                            QWidget* over, const ChosenURLs& chosen);

} // namespace trovell
