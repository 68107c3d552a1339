// SPDX-License-Identifier: MIT

#include "views/shared/RowModel.h"

#include <QMimeData>

namespace trovell {

using namespace Qt::StringLiterals;

QVariant RowModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::AccessibleTextRole)
        return {};
    QStringList parts;
    for (const int part :
         {int(Qt::DisplayRole), int(captionRole), int(trailingRole), int(Qt::ToolTipRole)})
        parts.append(data(index, part).toString());
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
}

Qt::DropActions RowModel::supportedDropActions() const
{
    return Qt::MoveAction | Qt::CopyAction;
}

QStringList RowModel::mimeTypes() const
{
    return {u"text/plain"_s};
}

QMimeData* RowModel::mimeData(const QModelIndexList& rows) const
{
    auto* data = new QMimeData;
    data->setText(idAt(rows.value(0)).toString(QUuid::WithoutBraces).toUpper());
    return data;
}

bool RowModel::dropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                            const QModelIndex& target)
{
    const QUuid dragged = QUuid::fromString(data->text());
    if (dragged.isNull() || !target.isValid())
        return false;
    Q_EMIT dropped(dragged, idAt(target));
    return true;
}

} // namespace trovell
