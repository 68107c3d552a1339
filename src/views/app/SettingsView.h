// SPDX-License-Identifier: MIT
//
// The content of the settings window. Main thread.
#pragma once

#include "views/app/SettingsEnvironment.h"

#include <QWidget>

class QStackedWidget;

namespace trovell {

class SettingsTabBar;

/// A window of 680 × 560 with the pages General, Updates and About. Its controls read and write the
/// shared preferences directly: a change is in force at once, and one made elsewhere shows here at
/// once. Closing it discards nothing; it may be kept or made anew for every showing.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    enum class Page { general, updates, about };

    explicit SettingsView(const SettingsEnvironment& environment, QWidget* parent = nullptr);

    [[nodiscard]] Page page() const;
    void showPage(Page page);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addPage(const QString& symbolName, TextKey<> label, QWidget* content);

    SettingsEnvironment m_environment;
    SettingsTabBar* m_tabs;
    QStackedWidget* m_pages;
};

} // namespace trovell
