// SPDX-License-Identifier: MIT

#include "GalleryPage.h"

#include "views/style/Divider.h"
#include "views/style/Picker.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/ScrollArea.h"
#include "views/style/Switch.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QSlider>
#include <QVBoxLayout>

namespace trovell::gallery {

using namespace Qt::StringLiterals;

namespace {

/// A page laid out as a surface of the program would be, with texts long enough to wrap.
class SettingsPage : public GalleryPage {
public:
    explicit SettingsPage(VisualStyle& style) : GalleryPage(style, {680, 560})
    {
        auto* content = new QWidget;
        auto* column = new QVBoxLayout(content);
        column->setContentsMargins(70, 26, 70, 26);
        column->setSpacing(16);
        column->addWidget(makePickers());
        column->addWidget(makeSwitches());
        column->addWidget(makeTimeout());
        column->addLayout(makeLinks());
        column->addStretch();
        auto* scroll = new ScrollArea;
        scroll->setContent(content);
        auto* page = new QVBoxLayout(this);
        page->setContentsMargins(0, 0, 0, 0);
        page->addWidget(scroll);
    }

private:
    QVBoxLayout* makeCard(QWidget*& card)
    {
        auto* frame = new TrovellCardModifier(visual());
        frame->setPadding(0);
        auto* rows = new QVBoxLayout(frame);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        card = frame;
        return rows;
    }

    QWidget* makePickers()
    {
        QWidget* card = nullptr;
        QVBoxLayout* rows = makeCard(card);
        for (const QString& name : {u"Appearance"_s, u"Language"_s}) {
            auto* row = new QHBoxLayout;
            row->setContentsMargins(17, 6, 15, 6);
            auto* picker = new Picker(visual(), name, 190);
            picker->addItems({u"System Default"_s, u"English"_s, u"Türkçe"_s, u"日本語"_s,
                              u"한국어"_s, u"简体中文"_s});
            row->addWidget(new TextLabel(visual(), name), 1);
            row->addWidget(picker);
            if (rows->count() > 0)
                rows->addWidget(new Divider(visual()));
            rows->addLayout(row);
        }
        return card;
    }

    QWidget* makeSwitches()
    {
        QWidget* card = nullptr;
        QVBoxLayout* rows = makeCard(card);
        for (const QString& name :
             {u"Launch Trovell at login"_s, u"Show menu bar icon"_s,
              u"Keep Trovell running after closing the main window and while nothing else "
              "of it is to be seen"_s}) {
            auto* row = new QVBoxLayout;
            row->setContentsMargins(17, 11, 15, 11);
            auto* toggle = new Switch(visual(), name);
            toggle->setChecked(rows->count() != 2);
            row->addWidget(toggle);
            if (rows->count() > 0)
                rows->addWidget(new Divider(visual()));
            rows->addLayout(row);
        }
        return card;
    }

    QWidget* makeTimeout()
    {
        auto* card = new TrovellCardModifier(visual());
        auto* rows = new QVBoxLayout(card);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(4);
        auto* slider = new QSlider(Qt::Horizontal);
        slider->setRange(8, 12);
        slider->setValue(10);
        auto* row = new QHBoxLayout;
        row->setSpacing(24);
        row->addWidget(new TextLabel(visual(), u"Workspace launch timeout"_s));
        row->addWidget(makeCaption(u"8s"_s));
        row->addWidget(slider, 1);
        row->addWidget(makeCaption(u"12s"_s));
        rows->addLayout(row);
        rows->addWidget(makeCaption(u"Current timeout: 10 seconds"_s));
        return card;
    }

    QWidget* makeCaption(const QString& text)
    {
        return new TextLabel(visual(), text, TextRole::caption, ColorToken::labelSecondary);
    }

    QHBoxLayout* makeLinks()
    {
        auto* row = new QHBoxLayout;
        row->addStretch();
        row->addWidget(new SymbolLink(visual(), u"hand.raised"_s, u"Privacy"_s, ColorToken::link));
        row->addWidget(new SymbolLink(visual(), u"gearshape"_s, u"Settings"_s));
        row->addWidget(new ProgressRing(visual(), u"Reading windows"_s));
        row->addStretch();
        return row;
    }
};

} // namespace

QWidget* makeSettingsPage(VisualStyle& visual)
{
    return new SettingsPage(visual);
}

} // namespace trovell::gallery
