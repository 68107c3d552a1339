// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceEmptyView.h"

#include "views/shared/ViewEnvironment.h"
#include "views/style/Layouts.h"
#include "views/style/Painting.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr int emptyColumnGap = 18;
constexpr int textWidthLimit = 440;
constexpr int emptyButtonGap = 10;
constexpr int sideMargin = 24;

/// Two windows on a dashed desktop. Says nothing to assistive tools.
class EmptyIllustration : public QWidget {
public:
    EmptyIllustration(const VisualStyle& visual, QWidget* parent)
        : QWidget(parent), m_visual(visual)
    {
        setFixedSize(150, 100);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPen outline(faint(0.25), 2);
        // In units of the pen's width.
        outline.setDashPattern({3.5, 2.5});
        outline.setCapStyle(Qt::FlatCap);
        painter.setPen(outline);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 13, 13);
        paintBox(painter, QRectF(18, 19, 65, 42), 6, faint(0.18));
        paintBox(painter, QRectF(74, 43, 58, 38), 6, faint(0.15));
    }

private:
    [[nodiscard]] QColor faint(double opacity) const
    {
        QColor color = m_visual.color(ColorToken::labelSecondary);
        color.setAlphaF(static_cast<float>(opacity));
        return color;
    }

    const VisualStyle& m_visual;
};

} // namespace

WorkspaceEmptyView::WorkspaceEmptyView(const ViewEnvironment& environment, QWidget* parent)
    : QWidget(parent)
{
    const VisualStyle& visual = environment.visual;
    const Localization& words = environment.words;
    auto* title = new TextLabel(visual, {}, TextRole::title);
    words.renderText(title, u"Build your first workspace"_key);
    auto* text = new TextLabel(visual, {}, TextRole::body, ColorToken::labelSecondary);
    text->setWordWrap(true);
    text->setFixedWidth(textWidthLimit);
    text->setPreferredWrapWidth(textWidthLimit);
    words.renderText(text, u"Open and arrange the apps you use together, then capture the "
                           u"setup—or start with an empty workspace."_key);
    for (TextLabel* label : {title, text}) {
        label->setAlignment(Qt::AlignHCenter);
    }

    auto* create = new PushButton(visual, {}, PushButton::Kind::bordered);
    words.renderText(create, u"New Empty Workspace"_key);
    connect(create, &QAbstractButton::clicked, this, &WorkspaceEmptyView::createRequested);
    auto* capture = new PushButton(visual, {}, PushButton::Kind::prominent);
    words.renderText(capture, u"Capture Current Workspace"_key);
    connect(capture, &QAbstractButton::clicked, this, &WorkspaceEmptyView::captureRequested);
    // In a row of its own: a column would give the text the height it has in the whole width.
    new ColumnLayout(this, {sideMargin, 0, sideMargin, 0}, emptyColumnGap,
                     {Stretch{},
                      {new EmptyIllustration(visual, this), 0, Qt::AlignHCenter},
                      {title, 0, Qt::AlignHCenter},
                      new RowLayout(0, {Stretch{}, text, Stretch{}}),
                      {new RowLayout(emptyButtonGap, {create, capture}), 0, Qt::AlignHCenter},
                      Stretch{}});
}

} // namespace trovell
