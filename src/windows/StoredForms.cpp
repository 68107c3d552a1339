// SPDX-License-Identifier: MIT

#include "windows/StoredForms.h"

#include <QStringList>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::pair<WindowState, QLatin1StringView> stateWords[] = {
    {WindowState::maximizedHorizontally, "maximizedHorizontally"_L1},
    {WindowState::maximizedVertically, "maximizedVertically"_L1},
    {WindowState::fullScreen, "fullScreen"_L1},
    {WindowState::shaded, "shaded"_L1},
    {WindowState::above, "above"_L1},
    {WindowState::tiled, "tiled"_L1}};

} // namespace

QString storedRole()
{
    return u"AXWindow"_s;
}

QString storedSubrole(WindowKind kind)
{
    switch (kind) {
    case WindowKind::standard:
        return u"AXStandardWindow"_s;
    case WindowKind::dialog:
        return u"AXDialog"_s;
    case WindowKind::utility:
        return u"AXFloatingWindow"_s;
    case WindowKind::notification:
        return u"AXSystemDialog"_s;
    }
    return {};
}

QString storedStates(WindowStates states)
{
    QStringList words;
    for (const auto& [state, word] : stateWords) {
        if (states & state)
            words.append(word);
    }
    return words.join(u' ');
}

WindowStates statesFromStored(const QString& words)
{
    WindowStates states;
    const QStringList known = words.split(u' ');
    for (const auto& [state, word] : stateWords)
        states.setFlag(state, known.contains(word));
    return states;
}

StoredDisplays::StoredDisplays(const QList<Display>& displays)
{
    if (displays.isEmpty())
        return;
    const auto primary =
        std::find_if(displays.begin(), displays.end(), std::mem_fn(&Display::isPrimary));
    const qsizetype main = primary == displays.end() ? 0 : primary - displays.begin();
    const QRectF& mainFrame = displays.at(main).frame;
    m_bottomLeft = QPointF(mainFrame.x(), mainFrame.y() + mainFrame.height());
    QList<Screen> screens;
    for (const Display& display : displays)
        screens.append({storedFrame(display.frame), storedFrame(display.workArea), display.scale,
                        display.name});
    m_snapshots = makeDisplaySnapshots(screens, main);
}

QRectF StoredDisplays::storedFrame(const QRectF& desktopFrame) const
{
    return {desktopFrame.x() - m_bottomLeft.x(),
            m_bottomLeft.y() - (desktopFrame.y() + desktopFrame.height()), desktopFrame.width(),
            desktopFrame.height()};
}

QRectF StoredDisplays::desktopFrame(const QRectF& storedFrame) const
{
    return {storedFrame.x() + m_bottomLeft.x(),
            m_bottomLeft.y() - (storedFrame.y() + storedFrame.height()), storedFrame.width(),
            storedFrame.height()};
}

} // namespace trovell
