// SPDX-License-Identifier: MIT

#include "platform/x11/X11Control.h"

namespace trovell {

namespace {

DesktopAbilities abilitiesOf(const QList<quint32>& features, const X11Atoms& atoms)
{
    DesktopAbilities abilities;
    const std::pair<xcb_atom_t, WindowState> states[] = {
        {atoms.netWmStateMaximizedHorz, WindowState::maximizedHorizontally},
        {atoms.netWmStateMaximizedVert, WindowState::maximizedVertically},
        {atoms.netWmStateFullscreen, WindowState::fullScreen},
        {atoms.netWmStateShaded, WindowState::shaded},
        {atoms.netWmStateAbove, WindowState::above}};
    for (const auto& [atom, state] : states)
        abilities.states.setFlag(state, features.contains(atom));
    // Putting windows away is older than the list of features (ICCCM 4.1.4).
    abilities.states |= WindowState::minimized;
    abilities.hasVirtualDesktops = features.contains(atoms.netWmDesktop);
    return abilities;
}

} // namespace

X11Control::Request X11Control::request() const
{
    const X11Atoms& atoms = m_connection.atoms();
    const xcb_window_t root = m_connection.root();
    // The window manager shows that it lives by a property on a window of its own (EWMH section
    // 3). That window is known from the last time; only a new window manager needs a second look.
    return {m_managerWindow, m_connection.requestProperty(root, atoms.netSupportingWmCheck),
            m_connection.requestProperty(root, atoms.netSupported),
            m_connection.requestProperty(m_managerWindow, atoms.netSupportingWmCheck),
            xcb_get_selection_owner(m_connection.get(), atoms.compositor)};
}

X11Control::Answer X11Control::receive(const Request& request)
{
    const X11Atoms& atoms = m_connection.atoms();
    const quint32 manager = propertyNumbers(m_connection.reply(request.check)).value(0);
    const QList<quint32> features = propertyNumbers(m_connection.reply(request.supported));
    const auto compositor = m_connection.reply<xcb_get_selection_owner_reply>(request.compositor);
    const quint32 proven = propertyNumbers(m_connection.reply(request.proof)).value(0);
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
    answer.abilities.blendsWindows = compositor && compositor->owner != XCB_WINDOW_NONE;
    return answer;
}

} // namespace trovell
