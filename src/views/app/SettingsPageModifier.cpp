// SPDX-License-Identifier: MIT

#include "views/app/SettingsPageModifier.h"

#include <QVBoxLayout>

namespace trovell {

namespace {

constexpr int widestPage = 540;
constexpr QMargins pagePadding(34, 26, 34, 26);

} // namespace

SettingsPageModifier::SettingsPageModifier(QWidget* content, QWidget* parent) : ScrollArea(parent)
{
    content->setMaximumWidth(widestPage);
    auto* page = new QWidget;
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addStretch();
    // The content takes what the stretches could have, up to its greatest width.
    row->addWidget(content, 1);
    row->addStretch();
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(pagePadding);
    column->setSpacing(0);
    column->addLayout(row);
    column->addStretch();
    setContent(page);
}

} // namespace trovell
