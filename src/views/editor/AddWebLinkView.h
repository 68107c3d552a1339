// SPDX-License-Identifier: MIT
//
// The small sheet in which the address of a web link is typed. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/style/Sheet.h"

#include <QUrl>

namespace trovell {

class TextField;

class AddWebLinkView : public Sheet {
    Q_OBJECT

public:
    /// `text` is what the field starts with.
    AddWebLinkView(const ViewEnvironment& environment, const QString& text, QWidget* window);

Q_SIGNALS:
    void textChanged(const QString& text);
    /// Once, with an address that passed validation; the sheet closes after it.
    void added(const QUrl& url);

private:
    QWidget* makeBody(const QString& text);
    QWidget* makeButtons();
    void add();

    const ViewEnvironment m_environment;
    TextField* m_field;
};

} // namespace trovell
