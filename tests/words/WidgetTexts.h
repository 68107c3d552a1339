// SPDX-License-Identifier: MIT
//
// What a view shows, for tests that run it in a test language: texts that were not looked up, or
// were put together from pieces, and texts that lack room.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStringList>
#include <QTextDocumentFragment>
#include <QWidget>

namespace trovell {

using namespace Qt::StringLiterals;

/// Of `widget` itself: what it draws, its tooltip and what assistive tools read.
inline QStringList shownTexts(const QWidget& widget)
{
    QStringList texts{widget.toolTip(), widget.accessibleName(), widget.accessibleDescription()};
    if (widget.isWindow())
        texts += widget.windowTitle();
    for (const QAction* action : widget.actions())
        texts += {action->text(), action->toolTip()};
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        texts += Qt::mightBeRichText(label->text())
                     ? QTextDocumentFragment::fromHtml(label->text()).toPlainText()
                     : label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        texts += button->text();
    if (const auto* const field = qobject_cast<const QLineEdit*>(&widget))
        texts += field->placeholderText();
    if (const auto* const picker = qobject_cast<const QComboBox*>(&widget)) {
        for (int i = 0; i < picker->count(); ++i)
            texts += picker->itemText(i);
    }
    return texts;
}

inline QList<const QWidget*> widgetsIn(const QWidget& root)
{
    QList<const QWidget*> widgets{&root};
    for (const QWidget* widget : root.findChildren<QWidget*>())
        widgets.append(widget);
    return widgets;
}

/// The texts in `root`, hidden ones too, that are not one whole text of a test language. `data` are
/// names that stand in records and are shown as they are.
inline QStringList textsNotLookedUp(const QWidget& root, const QStringList& data = {})
{
    static const QRegularExpression letter(u"\\p{L}"_s);
    static const QRegularExpression oneText(u"^⟦[^⟦⟧]*⟧$"_s);
    QStringList found;
    for (const QWidget* widget : widgetsIn(root)) {
        for (const QString& text : shownTexts(*widget)) {
            if (text.contains(letter) && !text.contains(oneText) && !data.contains(text))
                found += text;
        }
    }
    return found;
}

/// The texts of the visible labels and buttons in `root` that are smaller than they ask to be;
/// those that wrap ask for a height that depends on their width.
inline QStringList clippedTexts(const QWidget& root)
{
    QStringList found;
    for (const QWidget* widget : widgetsIn(root)) {
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        if (!widget->isVisible() || (label == nullptr && button == nullptr))
            continue;
        const bool fits = widget->hasHeightForWidth()
                              ? widget->height() >= widget->heightForWidth(widget->width())
                              : widget->width() >= widget->sizeHint().width();
        if (!fits)
            found += label != nullptr           ? label->text()
                     : button->text().isEmpty() ? button->accessibleName()
                                                : button->text();
    }
    return found;
}

} // namespace trovell
