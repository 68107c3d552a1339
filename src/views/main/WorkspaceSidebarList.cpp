// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceSidebarList.h"

#include "model/TrovellWorkspace.h"
#include "views/main/WorkspaceSidebarRow.h"
#include "views/style/Painting.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace trovell {

namespace {

constexpr int inset = 8;
constexpr int rowGap = 2;
constexpr int menuOffset = 40; ///< of a menu opened by key from the row's leading edge

} // namespace

class WorkspaceSidebarDelegate : public QStyledItemDelegate {
public:
    explicit WorkspaceSidebarDelegate(WorkspaceSidebarList& list)
        : QStyledItemDelegate(&list), m_list(list)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const TrovellWorkspace* workspace = m_list.m_model->workspaceAt(index);
        if (!workspace)
            return;
        const MainEnvironment& environment = m_list.m_environment;
        const WorkspaceSidebarRow row(*workspace, environment.words);
        const QRect box = m_list.rowRect(index);
        const auto paintRow = [&](QPainter& target) {
            target.setLayoutDirection(option.direction);
            row.paint(target, environment.visual, box, stateOf(option, index));
        };
        if (workspace->id() == m_list.m_liftedRow)
            paintGroup(*painter, box, draggedRowOpacity, paintRow);
        else
            paintRow(*painter);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {1, m_list.m_environment.visual.scaled(Tokens::Size::sidebarRow) + rowGap};
    }

private:
    [[nodiscard]] RowState stateOf(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
    {
        return {.isSelected = index == m_list.currentIndex(),
                .isHovered =
                    option.state.testFlag(QStyle::State_MouseOver) || index == m_list.m_menuRow,
                .hasFocus = option.state.testFlag(QStyle::State_HasFocus),
                // The option's own flag is about the focus of the list.
                .isWindowActive = m_list.isActiveWindow()};
    }

    WorkspaceSidebarList& m_list;
};

WorkspaceSidebarList::WorkspaceSidebarList(const MainEnvironment& environment, QWidget* parent)
    : QListView(parent), m_environment(environment),
      m_model(new WorkspaceSidebarModel(environment, this)),
      m_dragging(environment.visual, *viewport(), *this)
{
    setModel(m_model);
    setItemDelegate(new WorkspaceSidebarDelegate(*this));
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
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

QRect WorkspaceSidebarList::rowRect(const QModelIndex& index) const
{
    return visualRect(index).adjusted(inset, 0, -inset, -rowGap);
}

QUuid WorkspaceSidebarList::rowAt(const QPoint& position) const
{
    return m_model->idAt(indexAt(position));
}

QRect WorkspaceSidebarList::rectOf(const QUuid& id) const
{
    const QModelIndex index = m_model->indexOf(id);
    return index.isValid() ? rowRect(index) : QRect();
}

QPixmap WorkspaceSidebarList::pictureOf(const QUuid& id) const
{
    const TrovellWorkspace* workspace = m_model->workspaceAt(m_model->indexOf(id));
    if (!workspace)
        return {};
    const WorkspaceSidebarRow row(*workspace, m_environment.words);
    return row.picture(m_environment.visual, rectOf(id).size(), devicePixelRatio(),
                       layoutDirection());
}

void WorkspaceSidebarList::setLifted(const QUuid& id, bool isLifted)
{
    m_liftedRow = isLifted ? id : QUuid();
    viewport()->update();
}

void WorkspaceSidebarList::dropOn(const QUuid& target, const QUuid& dragged)
{
    Q_EMIT dropped(dragged, target);
}

void WorkspaceSidebarList::click(const QUuid& id)
{
    setCurrentIndex(m_model->indexOf(id));
}

void WorkspaceSidebarList::closeRowMenu()
{
    m_menuRow = QModelIndex();
    viewport()->update();
}

void WorkspaceSidebarList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    viewport()->update();
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

void WorkspaceSidebarList::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && currentIndex().isValid()) {
        if (!event->isAutoRepeat())
            Q_EMIT startRequested(m_model->idAt(currentIndex()));
        return;
    }
    if (!moveByKey(*event))
        QListView::keyPressEvent(event);
}

bool WorkspaceSidebarList::moveByKey(const QKeyEvent& event)
{
    const bool isUp = event.key() == Qt::Key_Up;
    const bool isAlt = (event.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
    if (!isAlt || !(isUp || event.key() == Qt::Key_Down))
        return false;
    if (currentIndex().isValid())
        Q_EMIT moveRequested(m_model->idAt(currentIndex()), isUp ? -1 : 1);
    return true;
}

void WorkspaceSidebarList::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex row = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && row.isValid())
        Q_EMIT startRequested(m_model->idAt(row));
}

void WorkspaceSidebarList::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex row = isByKeyboard ? currentIndex() : indexAt(event->pos());
    if (!row.isValid() || m_dragging.isDragging())
        return;
    QPoint screenPoint = event->globalPos();
    if (isByKeyboard) {
        scrollTo(row);
        const QRect box = rowRect(row);
        const QRect corner(box.x() + menuOffset, box.y() + box.height(), 0, 0);
        screenPoint =
            viewport()->mapToGlobal(QStyle::visualRect(layoutDirection(), box, corner).topLeft());
    }
    m_menuRow = row;
    viewport()->update();
    Q_EMIT menuRequested(m_model->idAt(row), screenPoint, isByKeyboard);
}

void WorkspaceSidebarList::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        scheduleDelayedItemsLayout();
    if (event->type() == QEvent::ActivationChange)
        viewport()->update();
}

} // namespace trovell
