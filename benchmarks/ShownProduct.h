// SPDX-License-Identifier: MIT
//
// What a view needs to be measured: the product at work on a virtual desktop, its views painted
// into memory. Main thread.
#pragma once

#include "app/scenes/SurfaceEnvironments.h"
#include "CrowdedDesktop.h"
#include "model/WorkspaceQuery.h"
#include "views/shared/ApplicationIcons.h"

#include <QApplication>

namespace trovell::bench {

class ShownProduct {
public:
    /// Both outlive this.
    ShownProduct(test::LayoutSession& session, StoreContext& context)
        : m_session(session), m_context(context), m_workspaces(context),
          m_icons(session.dependencies().resources())
    {
        m_visual.install(*qApp);
    }

    [[nodiscard]] MainEnvironment environment()
    {
        return mainEnvironment({m_visual, m_words, m_icons}, m_session.dependencies(), m_context,
                               m_workspaces);
    }

private:
    test::LayoutSession& m_session;
    StoreContext& m_context;
    VisualStyle m_visual;
    Localization m_words;
    WorkspaceQuery m_workspaces;
    ApplicationIcons m_icons;
};

} // namespace trovell::bench
