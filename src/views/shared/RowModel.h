// SPDX-License-Identifier: MIT
//
// Rows as a RowList shows them, each known by an identifier. Main thread.
#pragma once

#include <QAbstractListModel>
#include <QUuid>

namespace trovell {

/// What a row says beside its name (`Qt::DisplayRole`), all of it as it is shown.
enum RowRole {
    captionRole = Qt::UserRole, ///< a second line
    trailingRole,               ///< at the end of the row, never elided
    symbolRole,                 ///< the name of the symbol at the start
    applicationRole,            ///< the desktop file of the application whose icon stands there
    isFaintRole,                ///< whether the name is faint
    isWarningRole,              ///< whether a warning stands at the end
};

/// Rows are dragged by their identifiers, and so are texts that hold one, from wherever.
class RowModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Null where there is none.
    [[nodiscard]] virtual QUuid idAt(const QModelIndex& index) const = 0;

    /// For assistive tools all that the row says. Derived classes answer the rest.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    /// The identifier of the first one, in capitals and without braces.
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& rows) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& target) override;

Q_SIGNALS:
    /// On the row `target`. Neither needs to be another one, `dragged` not even one of these.
    void dropped(const QUuid& dragged, const QUuid& target);
};

} // namespace trovell
