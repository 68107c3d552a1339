// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceItemsCard.h"

#include "views/detail/NoItemsView.h"
#include "views/detail/WorkspaceItemsModel.h"
#include "views/shared/RowList.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"

namespace trovell {

namespace {

constexpr int headerGap = 6;

constexpr RowLook itemLook{
    .padding = 0, .iconSize = 30, .symbolSize = 22, .verticalMargin = 7, .isDivided = true};

} // namespace

WorkspaceItemsCard::WorkspaceItemsCard(const ViewEnvironment& environment, QWidget* parent)
    : TrovellCardModifier(environment.visual, parent), m_environment(environment),
      m_noItems(new NoItemsView(environment)), m_model(new WorkspaceItemsModel(environment, this)),
      m_list(new RowList(environment, itemLook))
{
    m_list->setModel(m_model);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setWholeHeight();
    new ColumnLayout(this, 0, {buildHeader(), Gap{headerGap}, m_noItems, m_list});
    environment.words.render(this, [this] {
        setAccessibleName(m_environment.words.text(u"Items"_key));
        m_list->setAccessibleName(accessibleName());
    });
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
    new RowLayout(header, 6, {{title, 1}, edit});
    return header;
}

void WorkspaceItemsCard::setItems(const QList<WorkspaceItem*>& items)
{
    m_model->setItems(items);
    m_noItems->setVisible(items.isEmpty());
    m_list->setVisible(!items.isEmpty());
    checkMissing();
}

void WorkspaceItemsCard::checkMissing()
{
    if (isVisible())
        m_model->checkMissing();
}

} // namespace trovell
