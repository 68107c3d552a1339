// SPDX-License-Identifier: MIT

#include "GalleryPage.h"

#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellBrandMark.h"
#include "views/style/TrovellCardModifier.h"

#include "views/style/Painting.h"

#include <QDir>
#include <QMetaEnum>
#include <QPainter>

namespace trovell::gallery {

using namespace Qt::StringLiterals;

namespace {

class ColorBox : public QWidget {
public:
    ColorBox(const VisualStyle& visual, ColorToken token) : m_visual(visual), m_token(token)
    {
        setFixedSize(152, 44);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        paintBox(painter, rect(), 6, m_visual.color(m_token),
                 m_visual.color(ColorToken::separator));
    }

private:
    const VisualStyle& m_visual;
    ColorToken m_token;
};

class SymbolsPage : public GalleryPage {
public:
    explicit SymbolsPage(VisualStyle& style) : GalleryPage(style, {1180, 850})
    {
        int x = 32;
        for (const int size : {96, 64, 32, 22}) {
            add(this, new TrovellBrandMark(style, size), {x, 32 + (96 - size) / 2});
            x += size + 28;
        }
        QWidget* card = addCard({32, 156, 1116, 680}, {});
        QStringList names;
        for (const QString& folder : {u""_s, u"_ui/"_s}) {
            const QStringList files = QDir(u":/trovell/symbols/"_s + folder).entryList(QDir::Files);
            for (const QString& file : files)
                if (!file.startsWith(u"Trovell"))
                    names.append(folder + file.chopped(4));
        }
        int index = 0;
        for (const QString& name : std::as_const(names)) {
            addSymbol(card, {20 + (index % 7) * 154, 24 + (index / 7) * 92}, name);
            ++index;
        }
    }

private:
    void addSymbol(QWidget* card, const QPoint& place, const QString& name)
    {
        add(card, new SymbolView(visual(), name, 36), place + QPoint(26, 6));
        add(card, new SymbolView(visual(), name, 20, ColorToken::labelPrimary),
            place + QPoint(76, 14));
        add(card, new SymbolView(visual(), name, 16, ColorToken::labelPrimary),
            place + QPoint(110, 16));
        auto* label = new TextLabel(visual(), name, TextRole::caption2, ColorToken::labelSecondary);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignHCenter);
        add(card, label, place + QPoint(4, 52));
        label->resize(146, label->heightForWidth(146));
    }
};

class PalettePage : public GalleryPage {
public:
    explicit PalettePage(VisualStyle& style) : GalleryPage(style, {1180, 1640})
    {
        addText(this, {32, 32}, u"Palette"_s, TextRole::title, ColorToken::labelPrimary);
        const auto names = QMetaEnum::fromType<ColorToken>();
        for (int i = 0; i < names.keyCount(); ++i) {
            auto* card = new TrovellCardModifier(style, this);
            card->setGeometry(32 + (i % 6) * 188, 82 + (i / 6) * 118, 174, 104);
            const auto token = static_cast<ColorToken>(i);
            add(card, new ColorBox(style, token), {11, 11});
            addText(card, {11, 62}, QString::fromLatin1(names.key(i)), TextRole::caption,
                    ColorToken::labelPrimary);
            addText(card, {11, 78}, style.color(token).name(QColor::HexArgb).toUpper(),
                    TextRole::caption2, ColorToken::labelSecondary);
        }
    }
};

} // namespace

QWidget* makeSymbolsPage(VisualStyle& visual)
{
    return new SymbolsPage(visual);
}

QWidget* makePalettePage(VisualStyle& visual)
{
    return new PalettePage(visual);
}

} // namespace trovell::gallery
