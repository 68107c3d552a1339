// SPDX-License-Identifier: MIT

#include "views/editor/SavedWindowsList.h"

#include "views/shared/GradualColumn.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"

#include <QCheckBox>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int groupGap = 12;
constexpr int savedRowGap = 8;
constexpr int optionGap = 16;
constexpr int windowIndent = 16;

bool isRemembering(const EditablePlacement& placement)
{
    return placement.desktop || placement.states;
}

/// Of a whole application: one window alone is not missed by others.
bool hasSomethingToSay(const QList<EditablePlacement>& placements, const QList<qsizetype>& windows)
{
    return std::ranges::any_of(windows, [&](qsizetype position) {
        const EditablePlacement& placement = placements[position];
        return isRemembering(placement) || placement.opensMissingWindow;
    });
}

QString desktopName(const SavedDesktop& desktop, const Localization& words)
{
    if (desktop.isAll)
        return words.text(u"All Desktops"_key);
    return desktop.name.isEmpty() ? words.text(phrases::desktopNumber, desktop.index + 1)
                                  : desktop.name;
}

QStringList stateNames(WindowStates states, const Localization& words)
{
    using enum WindowState;
    const bool isWide = states.testFlag(maximizedHorizontally);
    const bool isHigh = states.testFlag(maximizedVertically);
    QStringList names;
    if (isWide && isHigh)
        names += words.text(u"Maximized"_key);
    else if (isWide)
        names += words.text(u"Maximized horizontally"_key);
    else if (isHigh)
        names += words.text(u"Maximized vertically"_key);
    if (states.testFlag(fullScreen))
        names += words.text(u"Full screen"_key);
    if (states.testFlag(shaded))
        names += words.text(u"Rolled up"_key);
    if (states.testFlag(above))
        names += words.text(u"Above others"_key);
    if (states.testFlag(tiled))
        names += words.text(u"Tiled"_key);
    return names;
}

/// "Mail • Maximized".
QString remembered(const EditablePlacement& placement, const Localization& words)
{
    QStringList parts;
    if (placement.desktop)
        parts += desktopName(*placement.desktop, words);
    parts += stateNames(placement.states, words);
    return parts.join(u" • "_s);
}

TextKey<> stateOption(WindowStates states)
{
    using enum WindowState;
    if (states.testFlag(fullScreen))
        return u"Restore full screen"_key;
    if (states.testFlag(maximizedHorizontally) || states.testFlag(maximizedVertically))
        return u"Restore maximized"_key;
    return u"Restore its state"_key;
}

} // namespace

SavedWindowsList::SavedWindowsList(const ViewEnvironment& environment,
                                   const QList<EditablePlacement>& placements)
    : m_environment(environment), m_placements(placements)
{
    QHash<QString, qsizetype> groups;
    for (qsizetype position = 0; position < placements.size(); ++position) {
        const QString& application = placements[position].bundleIdentifier;
        if (!groups.contains(application)) {
            groups.insert(application, m_groups.size());
            m_groups.append(Positions());
        }
        m_groups[groups.value(application)].append(position);
    }
    m_groups.removeIf(
        [this](const Positions& windows) { return !hasSomethingToSay(m_placements, windows); });
    const auto make = [this](qsizetype index) { return makeApplication(m_groups[index]); };
    new ColumnLayout(this, 0, {new GradualColumn(m_groups.size(), make)});
    environment.words.render(
        this, [this] { setAccessibleName(m_environment.words.text(u"Saved Layout"_key)); });
}

QWidget* SavedWindowsList::makeApplication(const Positions& windows)
{
    auto* application = new QWidget;
    auto* column = new ColumnLayout(application, {0, groupGap, 0, 0}, savedRowGap,
                                    {new Divider(m_environment.visual), makeHeading(windows)});
    for (const qsizetype position : windows) {
        if (isRemembering(m_placements[position]))
            column->addWidget(makeWindow(position));
    }
    return application;
}

QWidget* SavedWindowsList::makeHeading(const Positions& windows)
{
    auto* heading = new QWidget;
    auto* name = new TextLabel(m_environment.visual, m_placements[windows.first()].applicationName);
    name->setWeight(QFont::Medium);
    auto* row = new RowLayout(heading, optionGap, {{name, 1}});
    const auto opens = [this](qsizetype position) {
        return m_placements[position].opensMissingWindow;
    };
    if (windows.size() > 1 || std::ranges::any_of(windows, opens))
        row->addWidget(makeOption(windows, &EditablePlacement::opensMissingWindow,
                                  u"Open missing windows"_key));
    return heading;
}

QWidget* SavedWindowsList::makeWindow(qsizetype position)
{
    auto* window = new QWidget;
    const EditablePlacement& placement = m_placements[position];
    auto* title = new TextLabel(m_environment.visual, placement.title.value_or(QString()));
    if (!placement.title)
        m_environment.words.renderText(title, u"Untitled Window"_key);
    new ColumnLayout(window, {windowIndent, 0, 0, 0}, 2, {title, makeOptions(position)});
    return window;
}

QWidget* SavedWindowsList::makeOptions(qsizetype position)
{
    auto* options = new QWidget;
    auto* detail =
        new TextLabel(m_environment.visual, {}, TextRole::caption, ColorToken::labelSecondary);
    auto* row = new RowLayout(options, optionGap, {detail});
    const EditablePlacement& placement = m_placements[position];
    m_environment.words.render(detail, [this, detail, placement] {
        detail->setText(remembered(placement, m_environment.words));
    });
    if (placement.desktop)
        row->addWidget(makeOption({position}, &EditablePlacement::restoresDesktop,
                                  u"Restore on its desktop"_key));
    if (placement.states)
        row->addWidget(makeOption({position}, &EditablePlacement::restoresState,
                                  stateOption(placement.states)));
    row->addStretch(1);
    return options;
}

QWidget* SavedWindowsList::makeOption(const Positions& windows, bool EditablePlacement::* member,
                                      TextKey<> text)
{
    const EditablePlacement& first = m_placements[windows.first()];
    auto* option = new QCheckBox;
    option->setChecked(std::ranges::any_of(
        windows, [&](qsizetype position) { return m_placements[position].*member; }));
    option->setAccessibleDescription(
        windows.size() == 1 ? first.title.value_or(first.applicationName) : first.applicationName);
    m_environment.words.renderText(option, text);
    connect(option, &QAbstractButton::toggled, this, [this, windows, member](bool isOn) {
        for (const qsizetype position : windows)
            m_placements[position].*member = isOn;
    });
    return option;
}

} // namespace trovell
