// SPDX-License-Identifier: MIT

#include "views/shared/SheetParts.h"

#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/Sheet.h"
#include "views/style/TextLabel.h"

namespace trovell {

namespace {

constexpr int footerHeight = 64;
constexpr int footerInset = 24;
constexpr int footerMargin = 8;
constexpr int footerGap = 10;

} // namespace

PushButton* makeCancelButton(const ViewEnvironment& environment, Sheet& sheet)
{
    auto* button = new PushButton(environment.visual, {});
    environment.words.renderText(button, u"Cancel"_key);
    QObject::connect(button, &QAbstractButton::clicked, &sheet, &Sheet::cancel);
    return button;
}

QWidget* makeSheetFooter(const ViewEnvironment& environment, Sheet& sheet, TextLabel* text,
                         PushButton* confirm)
{
    auto* footer = new QWidget;
    footer->setMinimumHeight(footerHeight);
    text->setWordWrap(true);
    new RowLayout(footer, {footerInset, footerMargin, footerInset, footerMargin}, footerGap,
                  {{text, 1}, makeCancelButton(environment, sheet), confirm});
    return footer;
}

void setTitle(Sheet& sheet, const QString& title)
{
    sheet.setWindowTitle(title);
    sheet.setAccessibleName(title);
}

} // namespace trovell
