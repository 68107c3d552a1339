// SPDX-License-Identifier: MIT

#include "views/app/SettingsPageModifier.h"

#include "views/style/Layouts.h"

namespace trovell {

namespace {

constexpr int widestPage = 540;
constexpr QMargins pagePadding(34, 26, 34, 26);

} // namespace

SettingsPageModifier::SettingsPageModifier(QWidget* content, QWidget* parent) : ScrollArea(parent)
{
    content->setMaximumWidth(widestPage);
    auto* page = new QWidget;
    // The content takes what the stretches could have, up to its greatest width.
    new ColumnLayout(page, pagePadding, 0,
                     {new RowLayout(0, {Stretch{}, {content, 1}, Stretch{}}), Stretch{}});
    setContent(page);
}

} // namespace trovell
