// SPDX-License-Identifier: MIT

#include "platform/x11/X11Control.h"

#include "platform/x11/X11WindowStates.h"

#include <algorithm>

namespace trovell {

namespace {

DesktopAbilities abilitiesOf(const QList<quint32>& features, const X11Atoms& atoms)
{
    DesktopAbilities abilities;
    abilities.states = statesOf(features, atoms);
    // Putting windows away is older than the list of features (ICCCM 4.1.4).
    abilities.states |= WindowState::minimized;
    abilities.hasVirtualDesktops = features.contains(atoms.netWmDesktop);
    return abilities;
}

/// One for each desktop; those without a name of their own have an empty one.
QStringList desktopNames(const QByteArray& property, quint32 count)
{
    constexpr quint32 most = 64;
    QStringList names;
    const QByteArrayList texts = property.split('\0');
    for (quint32 index = 0; index < std::min(count, most); ++index)
        names.append(QString::fromUtf8(texts.value(index)));
    return names;
}

} // namespace

X11Control::Request X11Control::request() const
{
    const X11Atoms& atoms = m_connection.atoms();
    const xcb_window_t root = m_connection.root();
    // The window manager shows that it lives by a property on a window of its own (EWMH section
    // 3). That window is known from the last time; only a new window manager needs a second look.
    return {m_managerWindow,
            m_connection.requestProperty(root, atoms.netSupportingWmCheck),
            m_connection.requestProperty(root, atoms.netSupported),
            m_connection.requestProperty(m_managerWindow, atoms.netSupportingWmCheck),
            xcb_get_selection_owner(m_connection.get(), atoms.compositor),
            m_connection.requestProperty(root, atoms.netNumberOfDesktops),
            m_connection.requestProperty(root, atoms.netDesktopNames),
            m_connection.requestProperty(root, atoms.netCurrentDesktop)};
}

X11Control::Answer X11Control::receive(const Request& request)
{
    const X11Atoms& atoms = m_connection.atoms();
    const quint32 manager = propertyNumbers(m_connection.reply(request.check)).value(0);
    const QList<quint32> features = propertyNumbers(m_connection.reply(request.supported));
    const auto compositor = m_connection.reply<xcb_get_selection_owner_reply>(request.compositor);
    const quint32 proven = propertyNumbers(m_connection.reply(request.proof)).value(0);
    const QList<quint32> count = propertyNumbers(m_connection.reply(request.desktopCount));
    const QByteArray names = propertyBytes(m_connection.reply(request.desktopNames));
    const QList<quint32> current = propertyNumbers(m_connection.reply(request.currentDesktop));
    if (!m_connection.isAlive())
        return {WindowControl::notAnswering};
    if (manager != 0 && manager != request.expected && manager != m_managerWindow) {
        m_managerWindow = manager;
        const Request secondLook = this->request();
        m_connection.finishBatch();
        return receive(secondLook);
    }
    const bool isAvailable = manager != 0 && proven == manager &&
                             features.contains(atoms.netClientList) &&
                             features.contains(atoms.netMoveresizeWindow);
    Answer answer;
    if (isAvailable)
        answer = {WindowControl::available, abilitiesOf(features, atoms),
                  features.contains(atoms.netWmStateHidden)};
    if (answer.abilities.hasVirtualDesktops)
        answer.virtualDesktopNames = desktopNames(names, count.value(0));
    if (!current.isEmpty())
        answer.currentVirtualDesktop = static_cast<int>(current.first());
    answer.abilities.blendsWindows = compositor && compositor->owner != XCB_WINDOW_NONE;
    return answer;
}

} // namespace trovell
