// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceDetailColumn.h"

#include "views/detail/WorkspaceDetailView.h"
#include "views/main/WorkspaceEmptyView.h"
#include "views/shared/AddWorkspaceButton.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/ScrollArea.h"

#include <QGridLayout>
#include <QScrollBar>
#include <QStackedLayout>

namespace trovell {

namespace {

constexpr int buttonInset = 24;

} // namespace

WorkspaceDetailColumn::WorkspaceDetailColumn(const MainEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_hairline(new Divider(environment.visual)),
      m_pages(new QStackedLayout)
{
    new ColumnLayout(this, 0, {buildToolbar(), {m_pages, 1}});

    m_detail = new WorkspaceDetailView(environment.detail(), this);
    m_empty = new WorkspaceEmptyView(environment, this);
    // In the middle of the window, toolbar included.
    m_empty->setContentsMargins(0, 0, 0, environment.visual.tokens().size(Tokens::Size::toolbar));
    m_pages->addWidget(m_detail);
    m_pages->addWidget(m_empty);
    connect(m_empty, &WorkspaceEmptyView::createRequested, this,
            &WorkspaceDetailColumn::createRequested);
    connect(m_empty, &WorkspaceEmptyView::captureRequested, this,
            &WorkspaceDetailColumn::captureRequested);
    connect(m_detail->scrollArea()->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &WorkspaceDetailColumn::showScrolled);
}

QWidget* WorkspaceDetailColumn::buildToolbar()
{
    auto* toolbar = new QWidget(this);
    toolbar->setFixedHeight(m_environment.visual.tokens().size(Tokens::Size::toolbar));
    auto* add = new AddWorkspaceButton(m_environment);
    connect(add, &AddWorkspaceButton::createRequested, this,
            &WorkspaceDetailColumn::createRequested);
    connect(add, &AddWorkspaceButton::captureRequested, this,
            &WorkspaceDetailColumn::captureRequested);
    auto* row = new RowLayout(nullptr, {0, 0, buttonInset, 0}, 0, {Stretch{}, add});
    m_hairline->hide();
    auto* layers = new QGridLayout(toolbar);
    layers->setContentsMargins({});
    layers->addLayout(row, 0, 0);
    layers->addWidget(m_hairline, 0, 0, Qt::AlignBottom);
    return toolbar;
}

void WorkspaceDetailColumn::show(TrovellWorkspace* workspace, const Message& notice)
{
    m_detail->setWorkspace(workspace);
    m_detail->setNotice(notice);
    m_pages->setCurrentIndex(workspace ? 0 : 1);
    showScrolled();
}

void WorkspaceDetailColumn::showScrolled()
{
    const bool isDetail = m_pages->currentIndex() == 0;
    m_hairline->setVisible(isDetail && m_detail->scrollArea()->verticalScrollBar()->value() > 0);
}

} // namespace trovell
