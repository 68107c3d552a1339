// SPDX-License-Identifier: MIT

#include "CrowdedDesktop.h"

#include "Titles.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace trovell::bench {

using namespace Qt::StringLiterals;

CrowdedDesktop::CrowdedDesktop(lab::WindowManager windowManager) : m_desktop(windowManager) {}

QString CrowdedDesktop::bundleIdentifier(int application)
{
    return u"org.example.Application%1"_s.arg(application);
}

QString CrowdedDesktop::windowTitle(int application, int window)
{
    return realisticTitle(100 * application + window);
}

bool CrowdedDesktop::openApplications(int first, int count, int windowsEach)
{
    for (int application = first; application < first + count; ++application) {
        installDesktopFile(application);
        QByteArrayList options = {"--class", bundleIdentifier(application).toUtf8()};
        for (int window = 0; window < windowsEach; ++window) {
            if (window > 0)
                options.append("--window");
            const int place = application * windowsEach + window;
            const QByteArray geometry = "420,300," + QByteArray::number(20 + 11 * (place % 100)) +
                                        ',' + QByteArray::number(30 + 7 * (place % 80));
            options +=
                {"--title", windowTitle(application, window).toUtf8(), "--geometry", geometry};
        }
        m_desktop.startClient(options);
    }
    m_windowCount += count * windowsEach;
    if (!m_desktop.inspector().waitForWindowCount(m_windowCount))
        return false;
    QTest::qWait(3000);
    return true;
}

test::LayoutSession& CrowdedDesktop::session()
{
    if (!m_session)
        m_session = std::make_unique<test::LayoutSession>(m_desktop);
    return *m_session;
}

void CrowdedDesktop::installDesktopFile(int application) const
{
    const QString folder = m_desktop.homePath() + u"/.local/share/applications"_s;
    QDir().mkpath(folder);
    const QString identifier = bundleIdentifier(application);
    QFile file(folder + u'/' + identifier + u".desktop"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(u"[Desktop Entry]\nType=Application\nName=Application %1\n"
                   "Exec=true\nStartupWMClass=%2\n"_s.arg(application)
                       .arg(identifier)
                       .toUtf8());
}

} // namespace trovell::bench
