// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceItemRow.h"

#include "views/detail/ResourceIcon.h"
#include "views/shared/ItemPresentation.h"
#include "views/style/Painting.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int verticalMargin = 7;
constexpr int itemRowGap = 12;

} // namespace

WorkspaceItemRow::WorkspaceItemRow(const ViewEnvironment& environment, QWidget* parent)
    : Group(parent), m_environment(environment), m_icon(new ResourceIcon(environment)),
      m_name(new TextLabel(environment.visual, {})),
      m_typeLabel(
          new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::labelSecondary)),
      m_disabled(
          new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::labelSecondary)),
      m_missing(new SymbolView(environment.visual, u"exclamationmark.triangle.fill"_s, 18,
                               ColorToken::warningIcon))
{
    m_name->setWeight(QFont::Medium);
    m_disabled->setElides(false);
    m_disabled->setVisible(false);
    m_missing->setVisible(false);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(m_name);
    texts->addWidget(m_typeLabel);

    auto* row = new QHBoxLayout(this);
    // One more below for the rule.
    row->setContentsMargins(0, verticalMargin, 0, verticalMargin + 1);
    row->setSpacing(itemRowGap);
    row->addWidget(m_icon);
    row->addLayout(texts, 1);
    row->addWidget(m_disabled);
    row->addWidget(m_missing);
}

void WorkspaceItemRow::setItem(const WorkspaceItemValues& item)
{
    if (item.urlString != m_item.urlString || item.typeRawValue != m_item.typeRawValue)
        m_missing->setVisible(false);
    m_item = item;
    m_icon->setItem(type(), item.applicationPath);
    m_name->setText(item.displayName);
    m_name->setColor(item.isEnabled ? ColorToken::labelPrimary : ColorToken::labelSecondary);
    m_disabled->setVisible(!item.isEnabled);
    setAccessibleName(item.displayName);
    showTexts();
}

void WorkspaceItemRow::setDivided(bool isDivided)
{
    m_isDivided = isDivided;
    update();
}

void WorkspaceItemRow::showTexts()
{
    const Localization& words = m_environment.words;
    m_typeLabel->setText(typeLabel(type(), words));
    m_disabled->setText(words.text(u"Disabled"_key));
    const QString help =
        words.text(u"Resource is missing. Edit the workspace to locate it again."_key);
    m_missing->setAccessibleName(help);
    m_missing->setToolTip(help);
}

void WorkspaceItemRow::checkMissing()
{
    m_isCheckDue = m_isChecking;
    if (m_isChecking || !isFile())
        return;
    m_isChecking = true;
    checkResourceMissing(m_item.urlString, this,
                         [this, urlString = m_item.urlString](bool isMissing) {
                             acceptMissing(urlString, isMissing);
                         });
}

/// The row may show another item by now.
void WorkspaceItemRow::acceptMissing(const QString& urlString, bool isMissing)
{
    m_isChecking = false;
    if (isFile() && m_item.urlString == urlString)
        m_missing->setVisible(isMissing);
    if (m_isCheckDue)
        checkMissing();
}

void WorkspaceItemRow::paintEvent(QPaintEvent*)
{
    if (!m_isDivided)
        return;
    QPainter painter(this);
    const int start = m_icon->width() + itemRowGap;
    const QRect rule(start, height() - 1, width() - start, 1);
    paintHairline(painter, QStyle::visualRect(layoutDirection(), rect(), rule),
                  m_environment.visual.color(ColorToken::separator));
}

} // namespace trovell
