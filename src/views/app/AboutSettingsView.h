// SPDX-License-Identifier: MIT
//
// Who the program is and what it promises, the last page of the settings. Main thread.
#pragma once

#include "views/app/SettingsEnvironment.h"

#include <QWidget>

namespace trovell {

class AboutSettingsView : public QWidget {
    Q_OBJECT

public:
    explicit AboutSettingsView(const SettingsEnvironment& environment, QWidget* parent = nullptr);

private:
    QWidget* buildLinks();
    QWidget* buildLink(const QString& symbolName, TextKey<> label, const QUrl& address);
    QWidget* buildPrivacyCard();
    QWidget* buildBadges();

    SettingsEnvironment m_environment;
};

} // namespace trovell
