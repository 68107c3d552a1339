// SPDX-License-Identifier: MIT
//
// The picture of a launch item: the application's own icon, else the symbol of its kind. Main
// thread.
#pragma once

#include "model/WorkspaceItemType.h"
#include "views/style/Picture.h"

#include <optional>

namespace trovell {

class ApplicationIcons;
class VisualStyle;
struct ViewEnvironment;

/// A decoration, without an accessible name.
class ResourceIcon : public Picture {
    Q_OBJECT

public:
    explicit ResourceIcon(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// `applicationPath` as in `WorkspaceItem`.
    void setItem(WorkspaceItemType type, const std::optional<QString>& applicationPath);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    const VisualStyle& m_visual;
    ApplicationIcons& m_icons;
    QString m_symbolName;
    /// Empty for what has no icon of its own.
    QString m_applicationPath;
};

} // namespace trovell
