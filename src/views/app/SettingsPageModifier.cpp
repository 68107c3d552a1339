// SPDX-License-Identifier: MIT

#include "views/app/SettingsPageModifier.h"

#include <QVBoxLayout>

namespace trovell {

namespace {

constexpr int widestContent = 540;
constexpr QMargins padding(34, 26, 34, 26);

} // namespace

SettingsPageModifier::SettingsPageModifier(QWidget* content, QWidget* parent) : ScrollArea(parent)
{
    content->setMaximumWidth(widestContent);
    auto* page = new QWidget;
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addStretch();
    // The content takes what the stretches could have, up to its greatest width.
    row->addWidget(content, 1);
    row->addStretch();
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(padding);
    column->setSpacing(0);
    column->addLayout(row);
    column->addStretch();
    setContent(page);
}

} // namespace trovell
