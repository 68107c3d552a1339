// SPDX-License-Identifier: MIT
//
// A small sheet that asks for one text. Main thread.
#pragma once

#include "support/TextKey.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Sheet.h"

namespace trovell {

class PushButton;
class TextField;

class TextSheet : public Sheet {
    Q_OBJECT

public:
    struct Look {
        int width;
        int spacing;
        TextRole titleRole;
    };
    struct Texts {
        TextKey<> title;
        /// Shown while the field is empty.
        TextKey<> hint;
        /// The field's name for assistive tools.
        TextKey<> fieldName;
        TextKey<> confirm;
    };

protected:
    /// `text` is what the field starts with.
    TextSheet(const ViewEnvironment& environment, const Look& look, const Texts& texts,
              const QString& text, QWidget* window);

    [[nodiscard]] const ViewEnvironment& environment() const { return m_environment; }
    [[nodiscard]] TextField& field() const { return *m_field; }
    [[nodiscard]] PushButton& confirmButton() const { return *m_confirm; }
    /// The button or Return was pressed.
    virtual void confirm() = 0;

private:
    QWidget* makeForm(const Look& look, const Texts& texts);

    const ViewEnvironment m_environment;
    TextField* m_field;
    PushButton* m_confirm;
};

} // namespace trovell
