// SPDX-License-Identifier: MIT

#include "views/editor/ApplicationList.h"

#include "views/shared/ApplicationIcons.h"
#include "views/style/RowPainting.h"
#include "views/style/TextStyle.h"

#include <QCollator>
#include <QPainter>
#include <QStyledItemDelegate>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int rowHeight = 40;
constexpr int rowPadding = 10;
constexpr int iconSize = 24;
constexpr int iconGap = 12;

class ApplicationDelegate : public QStyledItemDelegate {
public:
    ApplicationDelegate(const ViewEnvironment& environment, QObject* parent)
        : QStyledItemDelegate(parent), m_environment(environment)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {0, m_environment.visual.scaled(rowHeight)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const VisualStyle& visual = m_environment.visual;
        paintRowBackground(*painter, visual, option.rect,
                           {.isSelected = option.state.testFlag(QStyle::State_Selected),
                            .isHovered = option.state.testFlag(QStyle::State_MouseOver),
                            .hasFocus = option.state.testFlag(QStyle::State_HasFocus),
                            // The option's own flag is about the focus of the list.
                            .isWindowActive = option.widget->isActiveWindow()});
        const int padding = visual.scaled(rowPadding);
        const int side = visual.scaled(iconSize);
        const QRect& row = option.rect;
        const QRect icon(row.x() + padding, row.y() + (row.height() - side) / 2, side, side);
        paintIcon(*painter, QStyle::visualRect(option.direction, row, icon), index);
        const int textStart = padding + side + visual.scaled(iconGap);
        const QRect text = row.adjusted(textStart, 0, -padding, 0);
        painter->setLayoutDirection(option.direction);
        paintLine(*painter, QStyle::visualRect(option.direction, row, text),
                  visual.text(TextRole::body), visual.color(ColorToken::labelPrimary),
                  index.data().toString());
    }

private:
    void paintIcon(QPainter& painter, const QRect& box, const QModelIndex& index) const
    {
        const QString path = index.data(ApplicationListModel::urlRole).toUrl().toLocalFile();
        const QPixmap icon =
            m_environment.icons.pixmap(path, box.width(), painter.device()->devicePixelRatioF());
        if (icon.isNull())
            m_environment.visual.paintSymbol(painter, box, u"app"_s,
                                             m_environment.visual.brandTint());
        else
            painter.drawPixmap(box, icon);
    }

    const ViewEnvironment m_environment;
};

} // namespace

void ApplicationListModel::setApplications(QList<InstalledApplication> applications)
{
    beginResetModel();
    m_applications = std::move(applications);
    endResetModel();
}

int ApplicationListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_applications.size());
}

QVariant ApplicationListModel::data(const QModelIndex& index, int role) const
{
    const InstalledApplication& application = m_applications[index.row()];
    if (role == Qt::DisplayRole)
        return application.description.name;
    return role == urlRole ? QVariant(application.url) : QVariant();
}

void sortByName(QList<InstalledApplication>& applications)
{
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(applications.begin(), applications.end(), [&collator](const auto& a, const auto& b) {
        const int order = collator.compare(a.description.name, b.description.name);
        return order != 0 ? order < 0 : a.url < b.url;
    });
}

ApplicationList::ApplicationList(const ViewEnvironment& environment, QWidget* parent)
    : QListView(parent)
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setItemDelegate(new ApplicationDelegate(environment, this));
    connect(&environment.icons, &ApplicationIcons::loaded, viewport(),
            qOverload<>(&QWidget::update));
}

QList<QUrl> ApplicationList::selectedURLs() const
{
    QModelIndexList rows =
        selectionModel() ? selectionModel()->selectedIndexes() : QModelIndexList();
    std::sort(rows.begin(), rows.end());
    QList<QUrl> urls;
    for (const QModelIndex& row : std::as_const(rows))
        urls.append(row.data(ApplicationListModel::urlRole).toUrl());
    return urls;
}

void ApplicationList::selectionChanged(const QItemSelection& selected, const QItemSelection& gone)
{
    QListView::selectionChanged(selected, gone);
    Q_EMIT selectionChanges();
}

} // namespace trovell
