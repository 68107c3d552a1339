// SPDX-License-Identifier: MIT

#include "views/shared/RowList.h"

#include "views/shared/ApplicationIcons.h"
#include "views/shared/ViewEnvironment.h"

#include <QApplication>
#include <QDrag>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>

#include <utility>

namespace trovell {

namespace {

constexpr int autoScrollEdge = 32;
constexpr int pageScrollStep = 10;
constexpr int pageScrollMilliseconds = 16;

} // namespace

RowList::RowList(const ViewEnvironment& environment, const RowLook& look, QWidget* parent)
    : QListView(parent), m_visual(environment.visual),
      m_delegate(new RowDelegate(environment.visual, environment.icons, look, *this))
{
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAutoScrollMargin(autoScrollEdge);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    connect(&environment.icons, &ApplicationIcons::loaded, viewport(),
            qOverload<>(&QWidget::update));
}

void RowList::setReorderable()
{
    m_isReorderable = true;
    setDragDropMode(DragDrop);
    // Whatever is dropped goes before the row it is dropped on, never between two.
    setDragDropOverwriteMode(true);
}

void RowList::setWholeHeight()
{
    m_hasWholeHeight = true;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model(), change, this, &QWidget::updateGeometry);
    connect(model(), &QAbstractItemModel::modelReset, this, &QWidget::updateGeometry);
}

QScrollArea* RowList::pageAround() const
{
    QWidget* around = parentWidget();
    while (around && !qobject_cast<QScrollArea*>(around))
        around = around->parentWidget();
    return qobject_cast<QScrollArea*>(around);
}

QSize RowList::sizeHint() const
{
    if (!m_hasWholeHeight)
        return QListView::sizeHint();
    const int rowHeight = m_delegate->sizeHint({}, {}).height();
    return {0, model()->rowCount() * rowHeight};
}

QSize RowList::minimumSizeHint() const
{
    return m_hasWholeHeight ? sizeHint() : QListView::minimumSizeHint();
}

QRect RowList::rowRect(const QModelIndex& index) const
{
    return m_delegate->rowRect(visualRect(index));
}

RowState RowList::stateOf(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver) || index == m_markedRow;
    return {.isSelected = option.state.testFlag(QStyle::State_Selected),
            .isHovered = isHovered && selectionMode() != NoSelection,
            .hasFocus = option.state.testFlag(QStyle::State_HasFocus),
            // The option's own flag is about the focus of the list.
            .isWindowActive = isActiveWindow()};
}

void RowList::setLiftedRow(const QModelIndex& index)
{
    QWidget* const before = indexWidget(m_liftedRow);
    QWidget* const now = indexWidget(index);
    m_liftedRow = index;
    if (before)
        before->setGraphicsEffect(nullptr);
    if (now) {
        auto* const faint = new QGraphicsOpacityEffect(now);
        faint->setOpacity(draggedRowOpacity);
        now->setGraphicsEffect(faint);
    }
    viewport()->update();
}

void RowList::setMarkedRow(const QModelIndex& index)
{
    m_markedRow = index;
    viewport()->update();
}

/// Its source is not the list: Qt would refuse a drop on a selected row of the same one.
void RowList::startDrag(Qt::DropActions)
{
    const QPersistentModelIndex row = std::exchange(m_pressedRow, QModelIndex());
    const int margin = m_visual.isComposited() ? liftedRowMargin : 0;
    auto* drag = new QDrag(window());
    drag->setMimeData(model()->mimeData({row}));
    drag->setPixmap(pictureOf(row, margin));
    drag->setHotSpot(m_pressedPlace - rowRect(row).topLeft() + QPoint(margin, margin));
    setLiftedRow(row);
    // The list may close meanwhile.
    const QPointer list(this);
    drag->exec(Qt::MoveAction);
    if (list)
        setLiftedRow({});
}

QPixmap RowList::pictureOf(const QModelIndex& index, int margin)
{
    const QRect row = rowRect(index);
    QPixmap picture((row.size() + 2 * QSize(margin, margin)) * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintLiftedRow(painter, m_visual, QRect(QPoint(margin, margin), row.size()));
    painter.translate(QPoint(margin, margin) - row.topLeft());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.state = QStyle::State_Enabled;
    if (QWidget* const controls = indexWidget(index))
        controls->render(&painter, row.topLeft(), {}, QWidget::DrawChildren);
    else
        m_delegate->paint(&painter, option, index);
    return picture;
}

void RowList::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isArrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    const bool isAlt = (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
    // A key that is held down activates once.
    if (isReturn && event->isAutoRepeat())
        return;
    if (!m_isReorderable || !isArrow || !isAlt)
        return QListView::keyPressEvent(event);
    if (currentIndex().isValid())
        Q_EMIT moveRequested(event->key() == Qt::Key_Up ? -1 : 1);
}

void RowList::wheelEvent(QWheelEvent* event)
{
    if (m_hasWholeHeight)
        event->ignore();
    else
        QListView::wheelEvent(event);
}

void RowList::dragMoveEvent(QDragMoveEvent* event)
{
    QListView::dragMoveEvent(event);
    if (m_hasWholeHeight && !m_pageScrolling.isActive())
        m_pageScrolling.start(pageScrollMilliseconds, this);
}

void RowList::dragLeaveEvent(QDragLeaveEvent* event)
{
    m_pageScrolling.stop();
    QListView::dragLeaveEvent(event);
}

void RowList::dropEvent(QDropEvent* event)
{
    m_pageScrolling.stop();
    QListView::dropEvent(event);
}

void RowList::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_pageScrolling.timerId())
        scrollPage();
    else
        QListView::timerEvent(event);
}

/// While a row is held at the upper or lower edge of the page.
void RowList::scrollPage()
{
    const QScrollArea* page = pageAround();
    if (!page)
        return;
    const int place = page->viewport()->mapFromGlobal(QCursor::pos()).y();
    const bool isAbove = place < autoScrollEdge;
    if (isAbove || place >= page->viewport()->height() - autoScrollEdge)
        page->verticalScrollBar()->setValue(page->verticalScrollBar()->value() +
                                            (isAbove ? -pageScrollStep : pageScrollStep));
}

void RowList::mousePressEvent(QMouseEvent* event)
{
    if (!m_isReorderable)
        return QListView::mousePressEvent(event);
    m_pressedPlace = event->position().toPoint();
    m_pressedRow = event->button() == Qt::LeftButton ? indexAt(m_pressedPlace) : QModelIndex();
}

void RowList::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isReorderable)
        return QListView::mouseMoveEvent(event);
    const int distance = (event->position().toPoint() - m_pressedPlace).manhattanLength();
    if (m_pressedRow.isValid() && distance >= QApplication::startDragDistance())
        startDrag(Qt::MoveAction);
}

void RowList::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_isReorderable)
        return QListView::mouseReleaseEvent(event);
    const QPersistentModelIndex row = std::exchange(m_pressedRow, QModelIndex());
    if (row.isValid() && row == indexAt(event->position().toPoint()))
        Q_EMIT clicked(row);
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!m_isReorderable)
        return QListView::mouseDoubleClickEvent(event);
    const QModelIndex row = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && row.isValid())
        Q_EMIT activated(row);
}

void RowList::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        scheduleDelayedItemsLayout();
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    if (event->type() == QEvent::ActivationChange)
        viewport()->update();
}

} // namespace trovell
