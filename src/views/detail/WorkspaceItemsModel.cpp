// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceItemsModel.h"

#include "views/shared/ItemPresentation.h"

#include <utility>

namespace trovell {

WorkspaceItemsModel::WorkspaceItemsModel(const ViewEnvironment& environment, QObject* parent)
    : RowModel(parent), m_environment(environment)
{
    connect(&environment.words, &Localization::languageChanged, this,
            &WorkspaceItemsModel::showChanges);
}

void WorkspaceItemsModel::setItems(const QList<WorkspaceItem*>& items)
{
    QSet<QString> missing;
    for (const Row& row : std::as_const(m_rows)) {
        if (row.isMissing)
            missing.insert(row.item.urlString);
    }
    beginResetModel();
    m_rows.clear();
    for (const WorkspaceItem* const item : items) {
        m_rows.append({item->id(), item->values(), item->type()});
        Row& row = m_rows.last();
        row.isMissing =
            row.type != WorkspaceItemType::webLink && missing.contains(row.item.urlString);
    }
    endResetModel();
}

void WorkspaceItemsModel::checkMissing()
{
    m_isCheckDue = !m_checked.isEmpty();
    if (m_isCheckDue)
        return;
    for (const Row& row : std::as_const(m_rows)) {
        if (row.type != WorkspaceItemType::webLink)
            m_checked.insert(row.item.urlString);
    }
    const QSet<QString> addresses = m_checked;
    for (const QString& urlString : addresses)
        check(urlString);
}

void WorkspaceItemsModel::check(const QString& urlString)
{
    checkResourceMissing(urlString, this, [this, urlString](bool isMissing) {
        for (Row& row : m_rows) {
            if (row.type != WorkspaceItemType::webLink && row.item.urlString == urlString)
                row.isMissing = isMissing;
        }
        m_checked.remove(urlString);
        showChanges();
        if (m_checked.isEmpty() && m_isCheckDue)
            checkMissing();
    });
}

void WorkspaceItemsModel::showChanges()
{
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

QUuid WorkspaceItemsModel::idAt(const QModelIndex& index) const
{
    return index.isValid() ? m_rows.at(index.row()).id : QUuid();
}

int WorkspaceItemsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant WorkspaceItemsModel::data(const QModelIndex& index, int role) const
{
    const Localization& words = m_environment.words;
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return row.item.displayName;
    case captionRole:
        return typeLabel(row.type, words);
    case trailingRole:
        return row.item.isEnabled ? QString() : words.text(u"Disabled"_key);
    case symbolRole:
        return symbolOf(row.type);
    case applicationRole:
        return row.type == WorkspaceItemType::application
                   ? row.item.applicationPath.value_or(QString())
                   : QString();
    case isFaintRole:
        return !row.item.isEnabled;
    case isWarningRole:
        return row.isMissing;
    case Qt::ToolTipRole:
        return row.isMissing
                   ? words.text(u"Resource is missing. Edit the workspace to locate it again."_key)
                   : QString();
    default:
        return RowModel::data(index, role);
    }
}

} // namespace trovell
