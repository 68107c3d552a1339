// SPDX-License-Identifier: MIT
//
// The small sheet in which the address of a web link is typed. Main thread.
#pragma once

#include "views/shared/TextSheet.h"

#include <QUrl>

namespace trovell {

class AddWebLinkView : public TextSheet {
    Q_OBJECT

public:
    /// `text` is what the field starts with.
    AddWebLinkView(const ViewEnvironment& environment, const QString& text, QWidget* window);

Q_SIGNALS:
    void textChanged(const QString& text);
    /// Once, with an address that passed validation; the sheet closes after it.
    void added(const QUrl& url);

private:
    void confirm() override;
};

} // namespace trovell
