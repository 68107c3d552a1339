// SPDX-License-Identifier: MIT

#include "views/support/ViewFixture.h"

#include <QApplication>

namespace trovell::test {

using namespace Qt::StringLiterals;

ViewFixture::ViewFixture(const AppConfiguration& configuration)
    : m_configuration(configuration),
      m_words({QString::fromUtf8(TROVELL_TEST_LANGUAGES), u":/trovell/translations"_s})
{
    m_visual.install(*qApp);
    m_visual.setAnimationReduced(true);
    m_words.setLanguage(u"en"_s);
    fingerprint = windows->fingerprint(0);
    m_window.resize(1180, 760);
}

void ViewFixture::setTrusted(bool isTrusted)
{
    windows->trusted = isTrusted;
    m_dependencies.accessibility().refresh();
}

} // namespace trovell::test
