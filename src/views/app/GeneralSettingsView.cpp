// SPDX-License-Identifier: MIT

#include "views/app/GeneralSettingsView.h"

#include "preferences/AppPreferences.h"
#include "services/LaunchAtLoginService.h"
#include "views/app/PreferenceSwitch.h"
#include "views/app/SettingsCard.h"
#include "views/style/ForwardedClicks.h"
#include "views/style/Layouts.h"
#include "views/style/Picker.h"
#include "views/style/Switch.h"
#include "views/style/TextLabel.h"

#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

constexpr int cardGap = 16;
constexpr int pickerWidth = 190;
constexpr int sliderLabelGap = 12;
constexpr int shortestTimeout = 8;
constexpr int longestTimeout = 12;

void addPickerRow(const SettingsEnvironment& environment, SettingsCard& card, TextKey<> name,
                  Picker* picker)
{
    auto* label = new TextLabel(environment.visual, {});
    const Localization& words = environment.words;
    words.render(picker, [&words, label, picker, name] {
        label->setText(words.text(name));
        picker->setAccessibleName(words.text(name));
    });
    QHBoxLayout* row = card.addRow();
    row->addWidget(label, 1);
    row->addWidget(picker);
}

void addSwitchRow(SettingsCard& card, Switch* control)
{
    QHBoxLayout* row = card.addRow();
    row->addWidget(control);
    forwardClicks(*row->parentWidget(), *control);
}

} // namespace

std::optional<qint64> wholeSeconds(double seconds)
{
    constexpr double beyond = 9223372036854775808.0; // 2^63
    if (!std::isfinite(seconds) || seconds < -beyond || seconds >= beyond)
        return std::nullopt;
    return static_cast<qint64>(seconds);
}

GeneralSettingsView::GeneralSettingsView(const SettingsEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_login(new Switch(environment.visual, {})),
      m_loginError(
          new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::destructive)),
      m_timeout(new QSlider(Qt::Horizontal)),
      m_timeoutText(
          new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::labelSecondary)),
      m_showsMenuBarItem(environment.preferences.showMenuBarItem())
{
    new ColumnLayout(this, cardGap, {buildPickers(), buildSwitches(), buildTimeout()});
    connect(&environment.preferences, &AppPreferences::showMenuBarItemChanged, this,
            &GeneralSettingsView::coupleKeepRunning);
}

QWidget* GeneralSettingsView::buildPickers()
{
    auto* card = new SettingsCard(m_environment.visual);
    addPickerRow(m_environment, *card, u"Appearance"_key, buildAppearance());
    addPickerRow(m_environment, *card, u"Language"_key, buildLanguage());
    return card;
}

Picker* GeneralSettingsView::buildAppearance()
{
    const Localization& words = m_environment.words;
    AppPreferences* preferences = &m_environment.preferences;
    auto* picker = new Picker(m_environment.visual, {}, pickerWidth);
    for (qsizetype index = 0; index < allAppearances().size(); ++index)
        picker->addItem({});
    words.render(picker, [&words, picker] {
        for (int index = 0; index < picker->count(); ++index)
            picker->setItemText(index, words.text(displayName(allAppearances().at(index))));
    });
    const auto show = [picker, preferences] {
        picker->setCurrentIndex(int(allAppearances().indexOf(preferences->appearance())));
    };
    show();
    connect(preferences, &AppPreferences::appearanceChanged, picker, show);
    connect(picker, &QComboBox::activated, preferences,
            [preferences](int index) { preferences->setAppearance(allAppearances().at(index)); });
    return picker;
}

Picker* GeneralSettingsView::buildLanguage()
{
    const Localization& words = m_environment.words;
    AppPreferences* preferences = &m_environment.preferences;
    auto* picker = new Picker(m_environment.visual, {}, pickerWidth);
    for (const AppLanguage language : allLanguages())
        picker->addItem(words.text(displayName(language)));
    // A language is called what its speakers call it, whatever is spoken now.
    words.render(picker, [&words, picker] {
        picker->setItemText(0, words.text(displayName(AppLanguage::system)));
    });
    const auto show = [picker, preferences] {
        picker->setCurrentIndex(int(allLanguages().indexOf(preferences->language())));
    };
    show();
    connect(preferences, &AppPreferences::languageChanged, picker, show);
    connect(picker, &QComboBox::activated, preferences,
            [preferences](int index) { preferences->setLanguage(allLanguages().at(index)); });
    return picker;
}

QWidget* GeneralSettingsView::buildSwitches()
{
    auto* card = new SettingsCard(m_environment.visual);
    QVBoxLayout* login = card->addColumn();
    login->addWidget(m_login);
    login->addWidget(m_loginError);
    forwardClicks(*login->parentWidget(), *m_login);
    renderLabel(m_environment.words, m_login, u"Launch Trovell at login"_key);
    m_loginError->setWordWrap(true);
    m_environment.words.render(this, [this] { showLoginItem(); });
    const LaunchAtLoginService* service = &m_environment.launchAtLogin;
    connect(service, &LaunchAtLoginService::isEnabledChanged, this,
            &GeneralSettingsView::showLoginItem);
    connect(service, &LaunchAtLoginService::errorMessageChanged, this,
            &GeneralSettingsView::showLoginItem);
    connect(m_login, &QAbstractButton::toggled, this, &GeneralSettingsView::changeLoginItem);

    addSwitchRow(*card, preferenceSwitch(m_environment, u"Show menu bar icon"_key,
                                         {&AppPreferences::showMenuBarItem,
                                          &AppPreferences::setShowMenuBarItem,
                                          &AppPreferences::showMenuBarItemChanged}));
    addSwitchRow(*card, preferenceSwitch(m_environment,
                                         u"Keep Trovell running after closing the main window"_key,
                                         {&AppPreferences::keepRunningAfterClose,
                                          &AppPreferences::setKeepRunningAfterClose,
                                          &AppPreferences::keepRunningAfterCloseChanged}));
    return card;
}

void GeneralSettingsView::changeLoginItem(bool isWanted)
{
    LaunchAtLoginService& service = m_environment.launchAtLogin;
    if (service.isEnabled() == isWanted)
        return;
    service.setEnabled(isWanted);
    // The desktop may have kept the old state, of which there is no signal.
    showLoginItem();
}

void GeneralSettingsView::showLoginItem()
{
    const LaunchAtLoginService& service = m_environment.launchAtLogin;
    m_login->setChecked(service.isEnabled());
    const auto& error = service.errorMessage();
    m_loginError->setText(error.value_or(QString()));
    m_loginError->setVisible(error.has_value());
}

QWidget* GeneralSettingsView::buildTimeout()
{
    const Localization& words = m_environment.words;
    AppPreferences* preferences = &m_environment.preferences;
    auto* card = new SettingsCard(m_environment.visual);
    QVBoxLayout* column = card->addColumn();
    auto* label = new TextLabel(m_environment.visual, {});
    label->setWordWrap(true);
    column->addLayout(new RowLayout(24, {label, {buildTimeoutSlider(), 1}}));
    column->addWidget(m_timeoutText);
    words.render(this, [this, &words, label] {
        label->setText(words.text(u"Workspace launch timeout"_key));
        m_timeout->setAccessibleName(label->text());
        showTimeout();
    });
    connect(preferences, &AppPreferences::launchTimeoutChanged, this,
            &GeneralSettingsView::showTimeout);
    connect(m_timeout, &QSlider::valueChanged, preferences, &AppPreferences::setLaunchTimeout);
    return card;
}

QLayout* GeneralSettingsView::buildTimeoutSlider()
{
    m_timeout->setRange(shortestTimeout, longestTimeout);
    m_timeout->setPageStep(1);
    auto* row = new RowLayout(sliderLabelGap);
    const auto addEnd = [&](TextKey<> key) {
        auto* end =
            new TextLabel(m_environment.visual, {}, TextRole::caption, ColorToken::labelSecondary);
        end->setElides(false);
        m_environment.words.renderText(end, key);
        row->addWidget(end);
        return end;
    };
    addEnd(u"8s"_key);
    row->addWidget(m_timeout, 1);
    addEnd(u"12s"_key)->setAlignment(Qt::AlignRight);
    return row;
}

void GeneralSettingsView::showTimeout()
{
    const double seconds = m_environment.preferences.launchTimeout();
    // Not written back: what is stored may lie beyond the ends of the slider or between its steps.
    const QSignalBlocker blocker(m_timeout);
    const double shown = std::isnan(seconds) ? shortestTimeout : seconds;
    m_timeout->setValue(
        int(std::lround(std::clamp<double>(shown, shortestTimeout, longestTimeout))));
    const auto whole = wholeSeconds(seconds);
    m_timeoutText->setVisible(whole.has_value());
    m_timeoutText->setText(m_environment.words.text(phrases::currentTimeout,
                                                    NumberArgument::plain(whole.value_or(0))));
}

void GeneralSettingsView::coupleKeepRunning()
{
    AppPreferences& preferences = m_environment.preferences;
    const bool wasShown = std::exchange(m_showsMenuBarItem, preferences.showMenuBarItem());
    if (wasShown && !m_showsMenuBarItem)
        preferences.setKeepRunningAfterClose(false);
}

} // namespace trovell
