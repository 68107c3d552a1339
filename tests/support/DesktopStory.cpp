// SPDX-License-Identifier: MIT

#include "support/DesktopStory.h"

#include "lab/Files.h"
#include "windows/OrdinaryWindow.h"

#include <algorithm>

namespace trovell::test {

using namespace Qt::StringLiterals;

DesktopStory::DesktopStory(WindowManager windowManager) : desktop(windowManager) {}

void DesktopStory::install(const QString& name, const QByteArrayList& arguments,
                           const QByteArray& startupWMClass)
{
    QByteArrayList command{scriptedClientPath(), "--class", name.toUtf8()};
    command += arguments;
    m_commands.insert(name, command);
    QByteArray entry = "[Desktop Entry]\nType=Application\nName=" + name.toUtf8() + "\nExec=";
    for (const QByteArray& word : std::as_const(command))
        entry += '"' + word + "\" ";
    entry += "\nStartupWMClass=" + (startupWMClass.isEmpty() ? name.toUtf8() : startupWMClass);
    writeFile(desktop.homePath() + u"/.local/share/applications/%1.desktop"_s.arg(name),
              entry + '\n');
}

QProcess& DesktopStory::open(const QString& name)
{
    const QByteArrayList command = m_commands.value(name);
    return desktop.start(command.first(), command.sliced(1));
}

LayoutSession& DesktopStory::session()
{
    if (!m_session)
        m_session = std::make_unique<LayoutSession>(desktop);
    return *m_session;
}

QMap<QString, DesktopWindow> DesktopStory::windows()
{
    const DesktopSnapshot snapshot =
        session()
            .windowSystem()
            .ask({.applications = DesktopQuestion::Applications::all, .windows = true})
            .result();
    QMap<QString, DesktopWindow> windows;
    for (const RunningApplication& application : snapshot.applications) {
        for (const DesktopWindow& window : application.windows) {
            if (isOrdinaryWindow(window))
                windows.insert(window.title.value_or(QString()), window);
        }
    }
    return windows;
}

bool DesktopStory::shows(const QStringList& titles)
{
    QStringList sorted = titles;
    sorted.sort();
    const bool isShown = waitUntil([&] { return windows().keys() == sorted; });
    if (!isShown)
        qWarning() << "There are" << windows().keys() << "instead of" << sorted;
    desktop.inspector().waitForRest();
    return isShown;
}

void DesktopStory::arrange(const QList<Wish>& wishes)
{
    const auto now = windows();
    QList<FrameRequest> requests;
    for (const Wish& wish : wishes)
        requests.append({now.value(wish.title).id, wish.frame, wish.states, wish.place});
    session().windowSystem().setFrames(requests).waitForFinished();
    desktop.inspector().waitForRest();
}

void DesktopStory::scatter()
{
    QList<Wish> wishes;
    for (const QString& title : windows().keys()) {
        const double step = 37. * double(wishes.size() + 1);
        wishes.append({title, QRectF(1300 - 3 * step, 60 + step, 360 + step, 300)});
    }
    arrange(wishes);
}

bool DesktopStory::save()
{
    workspace = session().capture(LayoutSession::Items::applications);
    m_saved.clear();
    const auto now = windows();
    for (const auto& [title, window] : now.asKeyValueRange())
        m_saved.insert(title, describe(window));
    return workspace != nullptr;
}

void DesktopStory::start(double timeoutSeconds)
{
    m_report = session().start(*workspace, timeoutSeconds);
}

QString DesktopStory::describe(const DesktopWindow& window) const
{
    const QRectF frame = window.frame.value_or(QRectF());
    const QString place = window.isOnAllDesktops  ? u"all desktops"_s
                          : window.virtualDesktop ? u"desktop %1"_s.arg(*window.virtualDesktop + 1)
                                                  : u"no desktop"_s;
    return u"%1×%2 at %3,%4, states %5, %6"_s.arg(frame.width())
        .arg(frame.height())
        .arg(frame.x())
        .arg(frame.y())
        .arg(window.states.toInt())
        .arg(place);
}

QString DesktopStory::lineAbout(const QString& title) const
{
    const auto isAbout = [&](const QString& line) {
        // What fails is told under the application's name.
        return line.startsWith(title + u": restored"_s) || line.contains(u": failed "_s) ||
               line.contains(u": timedOut "_s);
    };
    const auto line = std::ranges::find_if(m_report, isAbout);
    return line == m_report.end() ? QString() : *line;
}

QStringList DesktopStory::differences()
{
    QStringList lines;
    const auto now = windows();
    for (const auto& [title, saved] : m_saved.asKeyValueRange()) {
        const auto window = now.constFind(title);
        const QString found = window == now.cend() ? u"not there"_s : describe(*window);
        if (found != saved)
            lines.append(u"%1: %2 instead of %3; reported as \"%4\""_s.arg(title, found, saved,
                                                                           lineAbout(title)));
    }
    return lines;
}

} // namespace trovell::test
