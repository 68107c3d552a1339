// SPDX-License-Identifier: MIT
//
// Applications as rows with icon and name. Main thread.
#pragma once

#include "launch/ResourceSystem.h"
#include "views/shared/ViewEnvironment.h"

#include <QAbstractListModel>
#include <QListView>

namespace trovell {

class ApplicationListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { urlRole = Qt::UserRole };

    using QAbstractListModel::QAbstractListModel;

    void setApplications(QList<InstalledApplication> applications);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QList<InstalledApplication> m_applications;
};

/// By name as the user's language sorts; names that are equal by address. Any thread.
void sortByName(QList<InstalledApplication>& applications);

class ApplicationList : public QListView {
    Q_OBJECT

public:
    explicit ApplicationList(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// The addresses of the selected rows, from top to bottom.
    [[nodiscard]] QList<QUrl> selectedURLs() const;

Q_SIGNALS:
    void selectionChanges();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& gone) override;
};

} // namespace trovell
