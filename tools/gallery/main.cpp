// SPDX-License-Identifier: MIT
//
// Renders pictures of all components for comparison by eye:
//   QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=2 style-gallery FOLDER [font factor] [rtl]

#include "GalleryPage.h"

#include "views/style/Alert.h"

#include <QApplication>
#include <QDir>
#include <QPainter>

#include <memory>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

struct Output {
    QString folder;
    QString appearance;
    double scale;

    void save(const QString& name, const QPixmap& picture) const
    {
        const QString suffix = scale == 1 ? u""_s : u"@%1x"_s.arg(scale);
        picture.save(u"%1/%2-%3%4.png"_s.arg(folder, name, appearance, suffix));
    }
};

QPixmap picture(QWidget& page)
{
    page.show();
    page.activateWindow();
    QApplication::processEvents();
    return page.grab();
}

/// The window with its sheet over it, as the screen would show them.
QPixmap alertPicture(VisualStyle& visual)
{
    std::unique_ptr<QWidget> page(gallery::makeSettingsPage(visual));
    picture(*page);
    auto* alert = new Alert(visual, page.get(), u"Delete Workspace?"_s,
                            u"Its saved items and window layout will also be removed. This "
                            "cannot be undone."_s);
    alert->addButton(u"Cancel"_s, Alert::Role::cancel);
    alert->addButton(u"Delete"_s, Alert::Role::destructive);
    alert->open();
    QApplication::processEvents();
    QPixmap result = page->grab();
    QPainter(&result).drawPixmap(alert->pos() - page->mapToGlobal(QPoint()), alert->grab());
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2 || !QDir().mkpath(arguments[1]))
        return 2;
    VisualStyle visual;
    visual.setAnimationReduced(true);
    visual.install(application);
    visual.setFontFactor(arguments.size() > 2 ? arguments[2].toDouble() : 1);
    if (arguments.value(3) == u"rtl")
        QApplication::setLayoutDirection(Qt::RightToLeft);
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        visual.setAppearance(appearance);
        const Output output{arguments[1], appearance == Appearance::dark ? u"dark"_s : u"light"_s,
                            application.devicePixelRatio()};
        const auto save = [&](const QString& name, QWidget* (*make)(VisualStyle&)) {
            const std::unique_ptr<QWidget> page(make(visual));
            output.save(name, picture(*page));
        };
        save(u"80-components"_s, &gallery::makeComponentsPage);
        save(u"81-symbols"_s, &gallery::makeSymbolsPage);
        save(u"82-palette"_s, &gallery::makePalettePage);
        save(u"60-settings"_s, &gallery::makeSettingsPage);
        output.save(u"41-alert"_s, alertPicture(visual));
    }
    return 0;
}
