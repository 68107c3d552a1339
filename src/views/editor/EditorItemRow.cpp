// SPDX-License-Identifier: MIT

#include "views/editor/EditorItemRow.h"

#include "views/shared/ItemPresentation.h"
#include "views/style/Layouts.h"
#include "views/style/Painting.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

#include <QCheckBox>
#include <QPainter>
#include <QStyle>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int leadingInset = 8;
constexpr int trailingInset = 12;
constexpr int gripSize = 16;
constexpr int symbolSize = 20;
constexpr int optionsBox = 28;
constexpr int itemRowGap = 12;
constexpr int gripGap = 6;
constexpr int dividerStart = 56;

} // namespace

EditorItemRow::EditorItemRow(const ViewEnvironment& environment, const EditableWorkspaceItem& item,
                             QWidget* parent)
    : ListRow(parent), m_environment(environment), m_id(item.id),
      m_grip(
          new SymbolView(environment.visual, u"_ui/grip"_s, gripSize, ColorToken::labelTertiary)),
      m_isEnabled(new QCheckBox),
      m_symbol(new SymbolView(environment.visual, symbolOf(item.type), symbolSize)),
      m_name(new TextLabel(environment.visual, {})),
      m_url(new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::labelSecondary)),
      m_locateAgain(new LinkButton(environment.visual, {})),
      m_options(new SymbolButton(environment.visual, u"gearshape"_s, {})),
      m_remove(
          new SymbolButton(environment.visual, u"trash"_s, {}, SymbolButton::Kind::softDestructive))
{
    buildLayout();
    connect(m_isEnabled, &QAbstractButton::toggled, this, &EditorItemRow::enabledChanged);
    connect(m_locateAgain, &QAbstractButton::clicked, this, &EditorItemRow::locateAgainRequested);
    connect(m_options, &QAbstractButton::clicked, this, &EditorItemRow::optionsRequested);
    connect(m_remove, &QAbstractButton::clicked, this, &EditorItemRow::removeRequested);
    setItem(item);
    m_environment.words.render(this, [this] { showWords(); });
}

void EditorItemRow::setItem(const EditableWorkspaceItem& item)
{
    m_displayName = item.displayName;
    m_urlString = item.urlString;
    m_isEnabled->setChecked(item.isEnabled);
    m_symbol->setSymbol(symbolOf(item.type));
    m_name->setText(item.displayName);
    m_url->setText(item.urlString);
    showWords();
    checkMissing(item);
}

QWidget* EditorItemRow::chainAfter(QWidget* previous) const
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_isEnabled, m_locateAgain, m_options, m_remove}) {
        setTabOrder(previous, control);
        previous = control;
    }
    return previous;
}

QWidget* EditorItemRow::lastControl() const
{
    return m_remove;
}

void EditorItemRow::focusRemoveButton() const
{
    m_remove->setFocus(Qt::TabFocusReason);
}

void EditorItemRow::paintEvent(QPaintEvent*)
{
    // Above every row but the first: the card's own edge is there.
    if (y() == 0)
        return;
    QPainter painter(this);
    const int start = m_environment.visual.scaled(dividerStart);
    const QRect rule(start, 0, width() - start, 1);
    paintHairline(painter, QStyle::visualRect(layoutDirection(), rect(), rule),
                  m_environment.visual.color(ColorToken::separator));
}

void EditorItemRow::buildLayout()
{
    // The row itself is what is dragged.
    for (QWidget* picture : std::initializer_list<QWidget*>{m_grip, m_symbol, m_name, m_url})
        picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_name->setWeight(QFont::Medium);
    m_locateAgain->hide();
    m_options->setSizes(optionsBox, gripSize);

    auto* texts = new ColumnLayout(0, {Stretch{}, m_name, m_url, Stretch{}});

    new RowLayout(this, {leadingInset, 0, trailingInset, 0}, 0,
                  {m_grip,
                   Gap{gripGap},
                   m_isEnabled,
                   Gap{itemRowGap},
                   m_symbol,
                   Gap{itemRowGap},
                   {texts, 1},
                   Gap{itemRowGap},
                   m_locateAgain,
                   Gap{itemRowGap},
                   m_options,
                   m_remove});
}

void EditorItemRow::showWords()
{
    const Localization& words = m_environment.words;
    setAccessibleName(m_displayName);
    m_isEnabled->setAccessibleName(m_displayName);
    m_isEnabled->setAccessibleDescription(
        words.text(u"Press Alt+Up or Alt+Down to move this item."_key));
    m_locateAgain->setText(words.text(u"Locate Again"_key));
    const QString options = words.text(phrases::optionsOf, m_displayName);
    m_options->setAccessibleName(options);
    m_options->setToolTip(options);
    const QString remove = words.text(phrases::removeItem, m_displayName);
    m_remove->setAccessibleName(remove);
    m_remove->setToolTip(remove);
}

void EditorItemRow::checkMissing(const EditableWorkspaceItem& item)
{
    m_locateAgain->hide();
    if (item.type == WorkspaceItemType::webLink)
        return;
    checkResourceMissing(item.urlString, this, [this, asked = item.urlString](bool isMissing) {
        if (asked == m_urlString)
            m_locateAgain->setVisible(isMissing);
    });
}

} // namespace trovell
