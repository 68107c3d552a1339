// SPDX-License-Identifier: MIT

#include "views/shared/WorkspaceChoiceControls.h"

#include "views/shared/ViewEnvironment.h"
#include "views/style/ChoiceRow.h"
#include "views/style/Picker.h"

#include <QSignalBlocker>

namespace trovell {

WorkspaceChoiceControls::WorkspaceChoiceControls(const ViewEnvironment& environment,
                                                 const WorkspaceChoices& choices,
                                                 TextKey<> noShortcut, QWidget* parent)
    : QObject(parent), m_choices(choices),
      m_icons(new ChoiceRow(environment.visual, ChoiceRow::Look::symbol, {}, symbols(), parent)),
      m_accents(new ChoiceRow(environment.visual, ChoiceRow::Look::swatch, {}, trovell::accents(),
                              parent)),
      m_shortcut(new Picker(environment.visual, {}, 180, parent))
{
    m_icons->setSelected(choices.symbolName);
    m_accents->setSelected(choices.accentIdentifier);
    const Localization& words = environment.words;
    words.render(this, [this, &words, noShortcut] { showShortcuts(words, noShortcut); });

    connect(m_icons, &ChoiceRow::chosen, this, [this](const QString& symbolName) {
        m_choices.symbolName = symbolName;
        Q_EMIT choicesChanged();
    });
    connect(m_accents, &ChoiceRow::chosen, this, [this](const QString& accentIdentifier) {
        m_choices.accentIdentifier = accentIdentifier;
        Q_EMIT choicesChanged();
    });
    connect(m_shortcut, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_choices.shortcutIndex = index;
        Q_EMIT choicesChanged();
    });
}

void WorkspaceChoiceControls::showShortcuts(const Localization& words, TextKey<> noShortcut)
{
    m_icons->setAccessibleName(words.text(u"Icon"_key));
    m_accents->setAccessibleName(words.text(u"Accent"_key));
    m_shortcut->setAccessibleName(words.text(u"Shortcut"_key));
    const QSignalBlocker blocker(m_shortcut);
    m_shortcut->clear();
    for (const auto& shortcut : shortcuts()) {
        m_shortcut->addItem(shortcut ? words.text(displayName(*shortcut)) : words.text(noShortcut));
    }
    m_shortcut->setCurrentIndex(int(m_choices.shortcutIndex));
}

} // namespace trovell
