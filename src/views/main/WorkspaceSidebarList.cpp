// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceSidebarList.h"

#include <QContextMenuEvent>
#include <QScrollBar>

namespace trovell {

namespace {

constexpr int menuOffset = 40; ///< of a menu opened by key from the row's leading edge

RowLook lookOf(const VisualStyle& visual)
{
    return {.height = visual.tokens().size(Tokens::Size::sidebarRow),
            .inset = 8,
            .gap = 2,
            .spacing = 10,
            .lineGap = 2,
            .selectedNameWeight = QFont::DemiBold,
            .trailingText = TextRole::caption2,
            .trailingColor = ColorToken::labelTertiary};
}

} // namespace

WorkspaceSidebarList::WorkspaceSidebarList(const MainEnvironment& environment, QWidget* parent)
    : RowList(environment, lookOf(environment.visual), parent), m_environment(environment),
      m_model(new WorkspaceSidebarModel(environment, this))
{
    setModel(m_model);
    setReorderable();
    connect(this, &RowList::clicked, this, &RowList::setCurrentIndex);
    connect(this, &RowList::activated, this,
            [this](const QModelIndex& row) { Q_EMIT startRequested(m_model->idAt(row)); });
    connect(this, &RowList::moveRequested, this, [this](int step) {
        Q_EMIT moveWorkspaceRequested(m_model->idAt(currentIndex()), step);
    });
    connect(m_model, &RowModel::dropped, this, &WorkspaceSidebarList::dropped);
    environment.words.render(this, [this] { showWords(); });
}

void WorkspaceSidebarList::showWords()
{
    const Localization& words = m_environment.words;
    setAccessibleName(words.text(u"Workspaces"_key));
    setAccessibleDescription(
        words.text(u"Press Alt+Up or Alt+Down to move the selected workspace."_key));
}

void WorkspaceSidebarList::showWorkspaces(const QList<TrovellWorkspace*>& workspaces,
                                          const QUuid& selection)
{
    // A change elsewhere in the list must not scroll away from what is being looked at.
    const bool follows =
        selection != m_shownSelection || viewport()->rect().intersects(visualRect(currentIndex()));
    const int position = verticalScrollBar()->value();
    m_shownSelection = selection;
    m_model->setWorkspaces(workspaces);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(position);
    setAutoScroll(follows);
    setCurrentIndex(m_model->indexOf(selection));
    setAutoScroll(true);
}

void WorkspaceSidebarList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    RowList::currentChanged(current, previous);
    const QUuid id = m_model->idAt(current);
    if (id.isNull() || id == m_shownSelection)
        return;
    m_shownSelection = id;
    Q_EMIT selected(id);
}

QItemSelectionModel::SelectionFlags WorkspaceSidebarList::selectionCommand(const QModelIndex& index,
                                                                           const QEvent*) const
{
    // Some workspace is always selected: no key or click takes the selection away.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void WorkspaceSidebarList::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex row = isByKeyboard ? currentIndex() : indexAt(event->pos());
    if (!row.isValid())
        return;
    QPoint screenPoint = event->globalPos();
    if (isByKeyboard) {
        scrollTo(row);
        const QRect box = rowRect(row);
        const QRect corner(box.x() + menuOffset, box.y() + box.height(), 0, 0);
        screenPoint =
            viewport()->mapToGlobal(QStyle::visualRect(layoutDirection(), box, corner).topLeft());
    }
    setMarkedRow(row);
    Q_EMIT menuRequested(m_model->idAt(row), screenPoint, isByKeyboard);
}

} // namespace trovell
