// SPDX-License-Identifier: MIT

#include "views/app/SymbolIcon.h"

#include "views/style/VisualStyle.h"

#include <QIconEngine>
#include <QPainter>

namespace trovell {

namespace {

ColorToken textColor(QIcon::Mode mode)
{
    switch (mode) {
    case QIcon::Disabled:
        return ColorToken::labelDisabled;
    case QIcon::Active:
    case QIcon::Selected:
        return ColorToken::menuHighlightText;
    case QIcon::Normal:
        break;
    }
    return ColorToken::labelPrimary;
}

class SymbolIconEngine : public QIconEngine {
public:
    SymbolIconEngine(const VisualStyle& visual, const QString& symbolName)
        : m_visual(visual), m_symbolName(symbolName)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        m_visual.paintSymbol(*painter, rect, m_symbolName, m_visual.color(textColor(mode)));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new SymbolIconEngine(*this); }

private:
    const VisualStyle& m_visual;
    QString m_symbolName;
};

} // namespace

QIcon symbolIcon(const VisualStyle& visual, const QString& symbolName)
{
    return QIcon(new SymbolIconEngine(visual, symbolName));
}

} // namespace trovell
