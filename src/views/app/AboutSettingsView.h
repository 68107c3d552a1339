// SPDX-License-Identifier: MIT
//
// Who the program is and what it promises, the last page of the settings. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class AboutSettingsView : public QWidget {
    Q_OBJECT

public:
    explicit AboutSettingsView(const ViewEnvironment& environment, QWidget* parent = nullptr);

private:
    QWidget* buildLinks();
    QWidget* buildLink(const QString& symbolName, TextKey<> label, const QUrl& address);
    QWidget* buildPrivacyCard();
    QWidget* buildBadges();

    ViewEnvironment m_environment;
};

} // namespace trovell
