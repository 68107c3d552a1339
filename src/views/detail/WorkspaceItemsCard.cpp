// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceItemsCard.h"

#include "views/detail/NoItemsView.h"
#include "views/detail/WorkspaceItemRow.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"

#include <QHBoxLayout>
#include <QTimer>

namespace trovell {

namespace {

/// More than the largest usual window shows at once.
constexpr qsizetype rowsPerTurn = 24;
constexpr int headerGap = 6;

} // namespace

WorkspaceItemsCard::WorkspaceItemsCard(const ViewEnvironment& environment, QWidget* parent)
    : TrovellCardModifier(environment.visual, parent), m_environment(environment),
      m_column(new QVBoxLayout(this)), m_noItems(new NoItemsView(environment))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addWidget(buildHeader());
    m_column->addSpacing(headerGap);
    m_column->addWidget(m_noItems);
    environment.words.render(this, [this] { showTexts(); });
}

QWidget* WorkspaceItemsCard::buildHeader()
{
    auto* header = new QWidget;
    auto* title = new TextLabel(m_environment.visual, {}, TextRole::headline);
    auto* edit = new PushButton(m_environment.visual, {}, PushButton::Kind::bordered,
                                PushButton::Scale::small);
    m_environment.words.renderText(title, u"Items"_key);
    m_environment.words.renderText(edit, u"Edit"_key);
    connect(edit, &QAbstractButton::clicked, this, &WorkspaceItemsCard::editRequested);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(title, 1);
    row->addWidget(edit);
    return header;
}

void WorkspaceItemsCard::setItems(const QList<WorkspaceItem*>& items)
{
    m_items.clear();
    for (const WorkspaceItem* const item : items)
        m_items.append(item->values());
    m_noItems->setVisible(m_items.isEmpty());
    while (m_rows.size() > m_items.size())
        delete m_rows.takeLast();
    m_filledCount = 0;
    if (!m_isFilling)
        fillRows();
}

void WorkspaceItemsCard::fillRows()
{
    const qsizetype end = std::min(m_items.size(), m_filledCount + rowsPerTurn);
    for (; m_filledCount < end; ++m_filledCount)
        fillRow(m_filledCount);
    m_isFilling = m_filledCount < m_items.size();
    if (m_isFilling)
        QTimer::singleShot(0, this, &WorkspaceItemsCard::fillRows);
}

void WorkspaceItemsCard::fillRow(qsizetype index)
{
    if (index == m_rows.size()) {
        m_rows.append(new WorkspaceItemRow(m_environment));
        m_column->addWidget(m_rows.last());
    }
    WorkspaceItemRow* const row = m_rows[index];
    row->setItem(m_items[index]);
    row->setDivided(index + 1 < m_items.size());
    if (isVisible())
        row->checkMissing();
}

void WorkspaceItemsCard::checkMissing()
{
    if (!isVisible())
        return;
    for (WorkspaceItemRow* const row : std::as_const(m_rows))
        row->checkMissing();
}

void WorkspaceItemsCard::showTexts()
{
    setAccessibleName(m_environment.words.text(u"Items"_key));
    for (WorkspaceItemRow* const row : std::as_const(m_rows))
        row->showTexts();
}

} // namespace trovell
