// SPDX-License-Identifier: MIT

#include "views/app/SettingsView.h"

#include "views/app/AboutSettingsView.h"
#include "views/app/GeneralSettingsView.h"
#include "views/app/SettingsPageModifier.h"
#include "views/app/SettingsTabBar.h"
#include "views/app/UpdateSettingsView.h"
#include "views/style/Layouts.h"
#include "views/style/Painting.h"

#include <QPainter>
#include <QStackedWidget>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(680, 560);
constexpr QMargins tabMargins(8, 8, 8, 8);

} // namespace

SettingsView::SettingsView(const SettingsEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_tabs(new SettingsTabBar(environment.visual)),
      m_pages(new QStackedWidget)
{
    setFixedSize(windowSize);
    auto* row = new RowLayout(nullptr, tabMargins, 0, {Stretch{}, m_tabs, Stretch{}});
    new ColumnLayout(this, 0, {row, {m_pages, 1}});
    addPage(u"gearshape"_s, u"General"_key, new GeneralSettingsView(environment));
    addPage(u"arrow.triangle.2.circlepath"_s, u"Updates"_key, new UpdateSettingsView(environment));
    addPage(u"info.circle"_s, u"About"_key, new AboutSettingsView(environment));
    connect(m_tabs, &QTabBar::currentChanged, m_pages, &QStackedWidget::setCurrentIndex);
    environment.words.render(this,
                             [this] { setWindowTitle(m_environment.words.text(u"Settings"_key)); });
}

void SettingsView::addPage(const QString& symbolName, TextKey<> label, QWidget* content)
{
    m_pages->addWidget(new SettingsPageModifier(content));
    const int index = m_tabs->addSymbolTab(symbolName);
    m_environment.words.render(m_tabs, [this, index, label] {
        m_tabs->setTabText(index, m_environment.words.text(label));
    });
}

SettingsView::Page SettingsView::page() const
{
    return static_cast<Page>(m_tabs->currentIndex());
}

void SettingsView::showPage(Page page)
{
    m_tabs->setCurrentIndex(static_cast<int>(page));
}

void SettingsView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const VisualStyle& visual = m_environment.visual;
    painter.fillRect(rect(), visual.color(ColorToken::pageBackground));
    const QRect strip(0, 0, width(), m_pages->y());
    painter.fillRect(strip, visual.color(ColorToken::sidebarBackground));
    paintHairline(painter, {0.0, strip.height() - 1.0, strip.width() * 1.0, 1.0},
                  visual.color(ColorToken::separator));
}

} // namespace trovell
